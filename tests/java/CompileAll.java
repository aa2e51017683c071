import java.io.*;
import java.nio.charset.*;
import java.util.*;
import javax.tools.*;

/**
 * Compiles many independent sources in one virtual machine, each as {@code javac -encoding cp1252 -Werror -Xlint:all,-serial}
 * would: its classes come beside it. Reads their paths from standard input, one a line, and prints for each "ok" or what
 * the compiler said, on one line. Argument: the classes that the sources need.
 */
public final class CompileAll {
    private CompileAll() {
    }

    public static void main(String[] arguments) throws Exception {
        JavaCompiler compiler = ToolProvider.getSystemJavaCompiler();
        BufferedReader paths = new BufferedReader(new InputStreamReader(System.in, StandardCharsets.UTF_8));
        // One for all, as it takes longer to find the library's classes than to compile a program. What it cannot read it
        // says by itself.
        List<String> unreadable = new ArrayList<>();
        StandardJavaFileManager files = compiler.getStandardFileManager(
            problem -> unreadable.add(problem.toString()), null, Charset.forName("cp1252"));
        List<String> options = List.of("-Werror", "-Xlint:all,-serial", "-proc:none", "-cp", arguments[0]);
        for (String path = paths.readLine(); path != null; path = paths.readLine()) {
            StringWriter said = new StringWriter();
            unreadable.clear();
            boolean ok = compiler.getTask(said, files, null, options, null, files.getJavaFileObjects(path)).call();
            System.out.println(ok && unreadable.isEmpty()
                                   ? "ok" : "rejected: " + (unreadable + said.toString()).replaceAll("\\R", " "));
        }
    }
}
