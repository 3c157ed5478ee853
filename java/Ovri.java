import java.io.File;
import java.net.URISyntaxException;
import java.security.CodeSource;

/**
 * The engine, as a Java program sees it: one function that performs one whole run.
 *
 * <p>The class stands in the default package because the engine exports its function under the name
 * that belongs to a class {@code Ovri} without a package. Code in a named package cannot import it;
 * reach it by reflection or through a small class of your own in the default package, as
 * {@link OvriHost} is.
 *
 * <p>The native library ({@code libovri.so} on Linux, {@code ovri.dll} on Windows) is loaded with
 * the class. It is looked for, in this order:
 *
 * <ol>
 *   <li>the file that the system property {@value #LIBRARY_PROPERTY} names;
 *   <li>beside the jar that holds this class, then in the {@code lib} and {@code bin} directories of
 *       the installation that the jar is part of;
 *   <li>the directories of {@code java.library.path}.
 * </ol>
 *
 * <p>When none of them has it, the first use of the class ends in an {@link UnsatisfiedLinkError}.
 */
public final class Ovri {
    /** The system property that may name the library's file, by its full path. */
    public static final String LIBRARY_PROPERTY = "ovri.library";

    private static final String[] PLACES = {".", "../../lib", "../../bin"};

    static {
        load();
    }

    private Ovri() {}

    /**
     * Performs the run that a setup file describes, on the calling thread, and returns when it has
     * ended.
     *
     * <p>All results are files. Reports and tables go to the output directory that the setup file
     * names; their names join directory and file with a backslash on every platform. The five
     * parameter update files of an estimation go to the current directory of the process. A little
     * text goes to the standard output of the process, beside {@link System#out}.
     *
     * <p>Nothing is reported back: a setup file that is missing or cannot be read gives no files and
     * no exception. Nothing is kept between calls. Reseeding takes the clock in whole seconds, so two
     * runs of one setup file that start within the same second may give the same numbers.
     *
     * <p>Calls that overlap in time do not disturb each other's numbers, but they do write the same
     * update files; let one call end before the next begins.
     *
     * @param setupFile the path of the setup file; relative paths, here and in the file itself, are
     *     taken from the current directory of the process
     * @return 0, whatever happened
     */
    public static native int ovri(String setupFile);

    private static void load() {
        String named = System.getProperty(LIBRARY_PROPERTY);
        if (named != null) {
            System.load(new File(named).getAbsolutePath());
            return;
        }
        File near = libraryNearJar();
        if (near != null) {
            System.load(near.getAbsolutePath());
        } else {
            System.loadLibrary("ovri");
        }
    }

    /** The library's file beside the jar or in its installation, or null. */
    private static File libraryNearJar() {
        CodeSource source = Ovri.class.getProtectionDomain().getCodeSource();
        if (source == null) {
            return null;
        }
        File directory;
        try {
            directory = new File(source.getLocation().toURI()).getParentFile();
        } catch (URISyntaxException | IllegalArgumentException notAFile) {
            return null;
        }
        String name = System.mapLibraryName("ovri");
        for (String place : PLACES) {
            File file = new File(new File(directory, place), name);
            if (file.isFile()) {
                return file;
            }
        }
        return null;
    }
}
