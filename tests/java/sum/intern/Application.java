package sum.intern;

import java.awt.Color;
import java.awt.Dimension;
import java.lang.reflect.Method;
import java.util.function.Consumer;
import javax.swing.JComponent;
import javax.swing.JFrame;
import javax.swing.JMenuBar;
import javax.swing.JPanel;
import javax.swing.UIManager;

/** The window of the running program and the way from its events to the program's methods. */
public final class Application {
    private static Application current;
    private static Consumer<String[]> log = columns -> { };

    private final Object program;
    private final JFrame frame = new JFrame("SuM");
    private final JPanel content = new JPanel(null);
    private final JMenuBar menuBar = new JMenuBar();

    private Application(Object program) {
        this.program = program;
    }

    /** Shows an empty window whose client area, menu bar included, is width x height pixels. */
    public static void open(Object program, int width, int height) {
        try {
            UIManager.setLookAndFeel(UIManager.getCrossPlatformLookAndFeelClassName());
        } catch (ReflectiveOperationException | javax.swing.UnsupportedLookAndFeelException e) {
            throw new IllegalStateException(e);
        }
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

    /** Tells the listener what the library did: the kind of call and its arguments. */
    public static void report(String... columns) {
        log.accept(columns);
    }

    public static void setLog(Consumer<String[]> listener) {
        log = listener;
    }

    public JFrame frame() {
        return frame;
    }

    /** The area that the components' coordinates count from. */
    public JComponent content() {
        return content;
    }

    public JMenuBar menuBar() {
        return menuBar;
    }

    /** Calls the program's method of that name; a missing one is reported, as nobody would notice it otherwise. */
    public void call(String handler) {
        try {
            Method method = program.getClass().getMethod(handler);
            report("Bearbeiter", handler);
            method.invoke(program);
        } catch (NoSuchMethodException e) {
            report("Fehlt", handler);
        } catch (ReflectiveOperationException e) {
            throw new IllegalStateException(handler, e);
        }
    }
}
