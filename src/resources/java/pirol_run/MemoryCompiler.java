package pirol_run;

import java.io.ByteArrayOutputStream;
import java.io.File;
import java.io.IOException;
import java.io.OutputStream;
import java.io.StringWriter;
import java.net.URI;
import java.nio.charset.StandardCharsets;
import java.util.Arrays;
import java.util.Collections;
import java.util.HashMap;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import javax.tools.Diagnostic;
import javax.tools.FileObject;
import javax.tools.ForwardingJavaFileManager;
import javax.tools.JavaCompiler;
import javax.tools.JavaFileManager;
import javax.tools.JavaFileObject;
import javax.tools.SimpleJavaFileObject;
import javax.tools.StandardJavaFileManager;
import javax.tools.StandardLocation;
import javax.tools.ToolProvider;

/** Compiles one source from memory into memory. */
final class MemoryCompiler {
    private static final String NAME = "SuMAnwendung";
    private static final List<String> OPTIONS = Arrays.asList("-proc:none", "-nowarn", "-Xlint:none", "-g", "-implicit:none");

    private MemoryCompiler() {
    }

    /** Whether this Java can compile at all. */
    static boolean isThere() {
        try {
            return ToolProvider.getSystemJavaCompiler() != null;
        } catch (LinkageError e) {
            return false; // a runtime without the module
        }
    }

    /** The classes by their names; null when the compiler rejects the source, which it has told then. */
    static Map<String, byte[]> compile(String source, List<File> classPath, boolean tells) throws IOException {
        JavaCompiler compiler = ToolProvider.getSystemJavaCompiler();
        try (StandardJavaFileManager files = compiler.getStandardFileManager(null, Locale.ROOT, StandardCharsets.UTF_8)) {
            files.setLocation(StandardLocation.CLASS_PATH, classPath);
            Output output = new Output(files);
            boolean good = compiler.getTask(new StringWriter(), output, problem -> tell(problem, source, tells), OPTIONS, null,
                                            Collections.singleton(new Source(source))).call();
            return good ? output.classes() : null;
        }
    }

    /** Code, line, what stands at the place, and the compiler's own words. */
    private static void tell(Diagnostic<? extends JavaFileObject> problem, String source, boolean tells) {
        if (!tells || problem.getKind() != Diagnostic.Kind.ERROR) {
            return;
        }
        int begin = (int) Math.max(problem.getPosition(), 0);
        int end = (int) Math.min(Math.max(problem.getEndPosition(), begin), source.length());
        Report.send('C', String.valueOf(problem.getCode()), String.valueOf(Math.max(problem.getLineNumber(), 0)),
                    source.substring(Math.min(begin, end), end), problem.getMessage(Locale.ENGLISH));
    }

    private static final class Source extends SimpleJavaFileObject {
        private final String text;

        Source(String text) {
            super(URI.create("string:///" + NAME + Kind.SOURCE.extension), Kind.SOURCE);
            this.text = text;
        }

        @Override
        public CharSequence getCharContent(boolean ignoresErrors) {
            return text;
        }
    }

    private static final class ClassFile extends SimpleJavaFileObject {
        private final ByteArrayOutputStream bytes = new ByteArrayOutputStream();

        ClassFile(String name) {
            super(URI.create("mem:///" + name.replace('.', '/') + Kind.CLASS.extension), Kind.CLASS);
        }

        @Override
        public OutputStream openOutputStream() {
            return bytes;
        }
    }

    private static final class Output extends ForwardingJavaFileManager<JavaFileManager> {
        private final Map<String, ClassFile> written = new HashMap<>();

        Output(JavaFileManager files) {
            super(files);
        }

        @Override
        public JavaFileObject getJavaFileForOutput(Location location, String name, JavaFileObject.Kind kind,
                                                   FileObject sibling) {
            return written.computeIfAbsent(name, ClassFile::new);
        }

        Map<String, byte[]> classes() {
            Map<String, byte[]> classes = new HashMap<>();
            written.forEach((name, file) -> classes.put(name, file.bytes.toByteArray()));
            return classes;
        }
    }
}
