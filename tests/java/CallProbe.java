import java.io.File;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.List;

/**
 * Calls the engine once for every argument ("null" for no path), in one process, and tells of each
 * call what it returned and how large the process is (in kB). With a first argument of "--part",
 * every file that a call leaves in the current directory is moved to "call1", "call2" and so on, so
 * that each call starts in a clean directory.
 */
public final class CallProbe {
    private CallProbe() {}

    public static void main(String[] arguments) throws IOException {
        boolean part = arguments.length > 0 && arguments[0].equals("--part");
        List<String> before = names();
        int call = 0;
        for (int a = part ? 1 : 0; a < arguments.length; ++a) {
            String setup = arguments[a].equals("null") ? null : arguments[a];
            int returned = Ovri.ovri(setup);
            ++call;
            System.err.println("returned " + returned + " resident " + residentSize());
            if (part) {
                moveNewFiles(before, "call" + call);
            }
        }
        System.err.println("alive");
    }

    private static List<String> names() {
        List<String> names = new ArrayList<>();
        String[] present = new File(".").list();
        if (present != null) {
            names.addAll(List.of(present));
        }
        return names;
    }

    private static void moveNewFiles(List<String> before, String target) throws IOException {
        Path directory = Files.createDirectory(Paths.get(target));
        for (String name : names()) {
            if (!before.contains(name) && new File(name).isFile()) {
                Files.move(Paths.get(name), directory.resolve(name));
            }
        }
    }

    private static long residentSize() throws IOException {
        for (String line : Files.readAllLines(Paths.get("/proc/self/status"))) {
            if (line.startsWith("VmRSS:")) {
                return Long.parseLong(line.replaceAll("[^0-9]", ""));
            }
        }
        return -1;
    }
}
