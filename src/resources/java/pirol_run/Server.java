package pirol_run;

import java.awt.AWTEvent;
import java.awt.Dimension;
import java.awt.EventQueue;
import java.awt.Toolkit;
import java.awt.event.WindowEvent;
import java.awt.image.BufferedImage;
import java.io.BufferedInputStream;
import java.io.DataInputStream;
import java.io.File;
import java.io.IOException;
import java.lang.reflect.Constructor;
import java.lang.reflect.InvocationTargetException;
import java.net.URL;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.Map;
import java.util.concurrent.LinkedBlockingQueue;
import java.util.concurrent.TimeUnit;
import javax.swing.JButton;
import javax.swing.JFrame;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.JTextArea;
import javax.swing.JTextField;

/**
 * Waits for a source on the standard input, compiles it and becomes its program. A source that the compiler rejects
 * leaves it waiting. Ends with the standard input, which is how it ends with Pirol however that ends.
 *
 * Arguments: milliseconds without a source after which it ends by itself; "warm" when it shall make itself ready first.
 *
 * A source comes as three fields, each its number of bytes in four (the highest first) and UTF-8: "library" when the
 * archives hold the real one, else nothing; the archives' paths, one a line; the text.
 */
public final class Server {
    private static final LinkedBlockingQueue<Request> REQUESTS = new LinkedBlockingQueue<>();
    private static volatile Throwable windowFailure;

    private Server() {
    }

    private static final class Request {
        private final boolean hasLibrary;
        private final List<File> archives = new ArrayList<>();
        private final String source;

        Request(String library, String archives, String source) {
            hasLibrary = !library.isEmpty();
            for (String archive : archives.isEmpty() ? new String[0] : archives.split("\n")) {
                this.archives.add(new File(archive));
            }
            this.source = source;
        }
    }

    public static void main(String[] arguments) throws Exception {
        Report.send('R', System.getProperty("java.version"), MemoryCompiler.isThere() ? "compiler" : "");
        long idleMilliseconds = Long.parseLong(arguments[0]);
        startDaemon("Pirol", Server::listen);
        Thread.setDefaultUncaughtExceptionHandler((thread, thrown) -> Report.thrown(thrown));
        if (arguments.length > 1) {
            prepareWindows();
            if (windowFailure == null) {
                rehearse();
            }
        } else {
            // A window needs much that can be made ready while the compiler works.
            startDaemon("Vorbereitung", Server::prepareWindows);
        }
        for (Request request; (request = REQUESTS.poll(idleMilliseconds, TimeUnit.MILLISECONDS)) != null;) {
            List<File> classPath = new ArrayList<>(request.archives);
            classPath.addAll(ownArchive());
            Map<String, byte[]> classes = MemoryCompiler.compile(request.source, classPath, true);
            if (classes != null) {
                run(request, classes);
                return;
            }
            Report.send('X');
        }
        Runtime.getRuntime().halt(0);
    }

    private static void startDaemon(String name, Runnable action) {
        Thread thread = new Thread(action, name);
        thread.setDaemon(true);
        thread.start();
    }

    private static void rehearse() {
        try {
            Rehearsal.run(ownArchive());
        } catch (Exception | Error e) {
            // The test itself goes on without, and tells what is wrong if it fails, too.
        }
    }

    private static List<File> ownArchive() {
        return Collections.singletonList(new File(System.getProperty("java.class.path")));
    }

    private static void listen() {
        try {
            DataInputStream in = new DataInputStream(new BufferedInputStream(System.in));
            while (true) {
                REQUESTS.add(new Request(field(in), field(in), field(in)));
            }
        } catch (IOException | RuntimeException e) {
            Runtime.getRuntime().halt(0);
        }
    }

    private static String field(DataInputStream in) throws IOException {
        byte[] bytes = new byte[in.readInt()];
        in.readFully(bytes);
        return new String(bytes, StandardCharsets.UTF_8);
    }

    // The program's end is the virtual machine's: when the last window is closed and no thread of the program is left.
    private static void run(Request request, Map<String, byte[]> classes) throws Exception {
        URL[] archives = new URL[request.archives.size()];
        for (int i = 0; i < archives.length; i++) {
            archives[i] = request.archives.get(i).toURI().toURL();
        }
        ProgramLoader loader = new ProgramLoader(classes, archives, request.hasLibrary);
        System.setOut(Report.stream('o'));
        System.setErr(Report.stream('f'));
        Report.send('S');
        Thread.currentThread().setContextClassLoader(loader);
        Constructor<?> constructor = loader.loadClass("SuMAnwendung").getConstructor();
        try {
            tellOfWindow();
            // Swing wants its components made where its events happen; the library itself may rely on the contrary.
            if (request.hasLibrary) {
                start(constructor);
            } else {
                EventQueue.invokeAndWait(() -> {
                    Thread.currentThread().setContextClassLoader(loader);
                    start(constructor);
                });
            }
        } catch (InvocationTargetException e) {
            fail(e.getCause());
        } catch (RuntimeException | Error e) {
            // What failed once in the window system fails with another word afterwards.
            fail(windowFailure != null ? windowFailure : e);
        }
    }

    private static void start(Constructor<?> constructor) {
        try {
            constructor.newInstance();
        } catch (InvocationTargetException e) {
            fail(e.getCause());
        } catch (ReflectiveOperationException e) {
            fail(e);
        }
    }

    /** A program that cannot even begin leaves no half window behind. */
    private static void fail(Throwable thrown) {
        Report.thrown(thrown);
        Runtime.getRuntime().halt(1);
    }

    private static void tellOfWindow() {
        Toolkit.getDefaultToolkit().addAWTEventListener(event -> {
            if (event.getID() == WindowEvent.WINDOW_OPENED) {
                EventQueue.invokeLater(() -> Report.send('W'));
            }
        }, AWTEvent.WINDOW_EVENT_MASK);
    }

    /** Loads what every window needs, by painting one that nobody sees. */
    private static void prepareWindows() {
        try {
            EventQueue.invokeAndWait(() -> {
                JFrame frame = new JFrame();
                JPanel panel = new JPanel();
                panel.add(new JButton("a"));
                panel.add(new JLabel("b"));
                panel.add(new JTextField("c"));
                panel.add(new JScrollPane(new JTextArea("d")));
                frame.setContentPane(panel);
                frame.getRootPane().setPreferredSize(new Dimension(200, 200));
                frame.pack();
                frame.getRootPane().paint(new BufferedImage(200, 200, BufferedImage.TYPE_INT_RGB).getGraphics());
                frame.dispose();
            });
        } catch (Exception | Error e) {
            windowFailure = e; // for the program, should it want a window
        }
    }
}
