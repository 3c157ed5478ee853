import java.io.File;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.NoSuchFileException;
import java.nio.file.Path;
import java.nio.file.Paths;

/**
 * Calls the engine many times in one process, going through the setup files in turn, and tells how
 * large the process is (in kB) and how many files of the working directory it has open after some of
 * the calls: ManyCalls CALLS FIRST SETUP... tells it after call FIRST and after the last.
 */
public final class ManyCalls {
    private ManyCalls() {}

    public static void main(String[] arguments) throws IOException {
        int calls = Integer.parseInt(arguments[0]);
        int first = Integer.parseInt(arguments[1]);
        int setups = arguments.length - 2;
        // What telling costs the machine itself is spent before the first call that counts.
        tell(0);
        for (int call = 1; call <= calls; ++call) {
            Ovri.ovri(arguments[2 + call % setups]);
            if (call == first || call == calls) {
                tell(call);
            }
        }
        System.err.println("alive");
    }

    private static void tell(int call) throws IOException {
        System.gc();
        long resident = -1;
        for (String line : Files.readAllLines(Paths.get("/proc/self/status"))) {
            if (line.startsWith("VmRSS:")) {
                resident = Long.parseLong(line.replaceAll("[^0-9]", ""));
            }
        }
        System.err.println("call " + call + " resident " + resident + " open " + openInDirectory());
    }

    /**
     * How many files of the working directory, where all that the calls read and write stands, are
     * open. The Java machine opens and closes others when it likes.
     */
    private static int openInDirectory() throws IOException {
        Path directory = Paths.get("").toRealPath();
        int open = 0;
        for (File descriptor : new File("/proc/self/fd").listFiles()) {
            try {
                if (Files.readSymbolicLink(descriptor.toPath()).startsWith(directory)) {
                    ++open;
                }
            } catch (NoSuchFileException closed) {
                // Closed since it was listed.
                continue;
            }
        }
        return open;
    }
}
