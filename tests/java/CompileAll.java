import java.io.BufferedReader;
import java.io.ByteArrayOutputStream;
import java.io.InputStreamReader;
import java.nio.charset.StandardCharsets;
import javax.tools.JavaCompiler;
import javax.tools.ToolProvider;

/**
 * Compiles many independent sources in one virtual machine, each as {@code javac -encoding cp1252 -Werror} would.
 * Reads their paths from standard input, one a line, and prints for each "ok" or what the compiler said, on one line.
 * Arguments: the classes that the sources need, a folder for those that they become.
 */
public final class CompileAll {
    private CompileAll() {
    }

    public static void main(String[] arguments) throws Exception {
        JavaCompiler compiler = ToolProvider.getSystemJavaCompiler();
        BufferedReader paths = new BufferedReader(new InputStreamReader(System.in, StandardCharsets.UTF_8));
        for (String path = paths.readLine(); path != null; path = paths.readLine()) {
            ByteArrayOutputStream said = new ByteArrayOutputStream();
            int status = compiler.run(null, said, said, "-encoding", "cp1252", "-Werror", "-proc:none", "-cp",
                                      arguments[0], "-d", arguments[1], path);
            System.out.println(status == 0 ? "ok" : "rejected: " + said.toString().replaceAll("\\R", " "));
        }
    }
}
