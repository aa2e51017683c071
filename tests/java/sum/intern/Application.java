package sum.intern;

import java.awt.*;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.util.*;
import java.util.List;
import java.util.stream.*;
import javax.swing.*;

/** The window of the running program and the way from its events to the program's methods. */
public final class Application {
    private static final PrintStream OUT = new PrintStream(System.out, true, StandardCharsets.UTF_8);
    private static Application current;

    public final JFrame frame = new JFrame("SuM");
    /** The area that the components' coordinates count from. */
    public final JPanel content = new JPanel(null);
    public final JMenuBar menuBar = new JMenuBar();
    /** The program's methods that were called. */
    public final List<String> called = new ArrayList<>();

    private final Object program;

    private Application(Object program) {
        this.program = program;
    }

    /** Shows an empty window whose client area, menu bar included, is width x height pixels. */
    public static void open(Object program, int width, int height) {
        current = new Application(program);
        current.content.setBackground(Color.WHITE);
        current.frame.setContentPane(current.content);
        current.frame.setJMenuBar(current.menuBar);
        current.frame.getRootPane().setPreferredSize(new Dimension(width, height));
        current.frame.setDefaultCloseOperation(JFrame.DISPOSE_ON_CLOSE);
        current.frame.pack();
        current.frame.setVisible(true);
    }

    public static Application current() {
        return current;
    }

    /** Prints a line of columns in UTF-8, separated by tabs; tabs, line ends and backslashes in them are escaped. */
    public static void print(Object... columns) {
        OUT.println(Stream.of(columns)
                        .map(column -> column.toString().replace("\\", "\\\\").replace("\t", "\\t")
                                             .replace("\r", "\\r").replace("\n", "\\n").replace("\1", "\\1"))
                        .collect(Collectors.joining("\t")));
    }

    /** Calls the program's method of that name; a missing one is told, as nobody would notice it otherwise. */
    public void call(String handler) {
        try {
            program.getClass().getMethod(handler).invoke(program);
            called.add(handler);
        } catch (NoSuchMethodException e) {
            print("Fehlt", handler);
        } catch (ReflectiveOperationException e) {
            throw new IllegalStateException(handler, e);
        }
    }
}
