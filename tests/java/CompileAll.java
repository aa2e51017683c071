import java.io.BufferedReader;
import java.io.InputStreamReader;
import java.io.OutputStream;
import java.io.StringWriter;
import java.net.URI;
import java.nio.ByteBuffer;
import java.nio.charset.CharacterCodingException;
import java.nio.charset.Charset;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.Locale;
import javax.tools.Diagnostic;
import javax.tools.DiagnosticCollector;
import javax.tools.FileObject;
import javax.tools.ForwardingJavaFileManager;
import javax.tools.JavaCompiler;
import javax.tools.JavaFileObject;
import javax.tools.SimpleJavaFileObject;
import javax.tools.StandardJavaFileManager;
import javax.tools.ToolProvider;

/**
 * Compiles many independent sources in one virtual machine, each as {@code javac -encoding cp1252 -Werror} would.
 * Reads their paths from standard input, one a line, and prints for each "ok" or what the compiler said first, on one
 * line. The classes are thrown away.
 */
public final class CompileAll {
    private static final Charset CP1252 = Charset.forName("cp1252");
    private static final JavaCompiler COMPILER = ToolProvider.getSystemJavaCompiler();

    private CompileAll() {
    }

    public static void main(String[] arguments) throws Exception {
        List<String> options = List.of("-encoding", "cp1252", "-Werror", "-proc:none", "-cp", arguments[0]);
        try (StandardJavaFileManager files = COMPILER.getStandardFileManager(null, null, null);
             BufferedReader paths = new BufferedReader(new InputStreamReader(System.in, StandardCharsets.UTF_8))) {
            for (String path = paths.readLine(); path != null; path = paths.readLine()) {
                System.out.println(verdict(files, options, Path.of(path)));
            }
        }
    }

    private static String verdict(StandardJavaFileManager files, List<String> options, Path path) throws Exception {
        // javac reports this itself, but not to those who bring their own file manager.
        try {
            CP1252.newDecoder().decode(ByteBuffer.wrap(Files.readAllBytes(path)));
        } catch (CharacterCodingException e) {
            return "rejected: unmappable character";
        }
        DiagnosticCollector<JavaFileObject> messages = new DiagnosticCollector<>();
        StringWriter rest = new StringWriter();
        boolean compiled = COMPILER.getTask(rest, new Discarding(files), messages, options, null,
                                            files.getJavaFileObjects(path)).call();
        if (compiled) {
            return "ok";
        }
        String said = messages.getDiagnostics().stream().map(CompileAll::text).findFirst().orElse(rest.toString());
        return "rejected: " + said.replaceAll("\\R", " ");
    }

    private static String text(Diagnostic<? extends JavaFileObject> message) {
        return message.getMessage(Locale.ENGLISH);
    }

    /** A file manager whose classes go nowhere. */
    private static final class Discarding extends ForwardingJavaFileManager<StandardJavaFileManager> {
        Discarding(StandardJavaFileManager files) {
            super(files);
        }

        @Override
        public JavaFileObject getJavaFileForOutput(Location location, String className, JavaFileObject.Kind kind,
                                                   FileObject sibling) {
            return new SimpleJavaFileObject(URI.create("discarded:///" + className), kind) {
                @Override
                public OutputStream openOutputStream() {
                    return OutputStream.nullOutputStream();
                }
            };
        }

        /** One manager serves all sources, so it stays open. */
        @Override
        public void close() {
        }
    }
}
