import java.io.File;

/**
 * A host of the smallest kind: runs each setup file named on its command line, one after another.
 *
 * <pre>java -jar ovri.jar SETUP...</pre>
 *
 * <p>It is meant to be read as much as to be used: everything that a host has to do is here.
 */
public final class OvriHost {
    private OvriHost() {}

    /**
     * Runs the setup files. The exit status is 0 when all of them were there to be run, 1 when one
     * was missing (the others run all the same), and 2 without any argument.
     *
     * @param arguments the paths of the setup files
     */
    public static void main(String[] arguments) {
        if (arguments.length == 0) {
            System.err.println("usage: java -jar ovri.jar SETUP...");
            System.exit(2);
        }
        boolean missing = false;
        for (String setup : arguments) {
            // The engine is silent about a file that it cannot open, so the host looks first.
            if (!new File(setup).isFile()) {
                System.err.println(setup + ": there is no such setup file");
                missing = true;
                continue;
            }
            Ovri.ovri(setup);
        }
        System.exit(missing ? 1 : 0);
    }
}
