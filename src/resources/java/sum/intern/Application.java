package sum.intern;

import java.awt.Color;
import java.awt.Dimension;
import java.awt.image.VolatileImage;
import java.lang.reflect.InvocationTargetException;
import javax.swing.JComponent;
import javax.swing.JFrame;
import javax.swing.JMenuBar;
import javax.swing.JPanel;

/** The window of the running program and the way from its events to the program's methods. */
public final class Application {
    /** Who wants to know what happens between the program and its library. */
    public interface Observer {
        /** A method of the program was called and came back. */
        default void called(String handler) {
        }

        /** The program lacks a method; nobody would notice it otherwise. */
        default void missing(String handler) {
            complain("Die Methode »" + handler + "« fehlt. Eine Methode, die aufgerufen werden soll, muss public sein.");
        }

        /** The library did something that shows nothing in the window. */
        default void used(String... call) {
        }
    }

    private static Observer observer = new Observer() {
    };
    private static Application current;
    private static boolean shows = true;

    public final JFrame frame = new JFrame("SuM");
    /** The area that the components' coordinates count from. */
    public final JPanel content = new JPanel(null);
    public final JMenuBar menuBar = new JMenuBar();

    private final Object program;
    private int behind;

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
        current.frame.setVisible(shows);
    }

    /** Runs a program whose window nobody sees and is gone afterwards. What the next one needs has been loaded then. */
    public static void rehearse(Runnable program) {
        shows = false;
        try {
            program.run();
            JFrame frame = current.frame;
            frame.validate();
            VolatileImage picture = frame.createVolatileImage(frame.getWidth(), frame.getHeight());
            frame.getRootPane().paint(picture.getGraphics());
            frame.getGraphics().drawImage(picture, 0, 0, null);
        } finally {
            if (current != null) {
                current.frame.dispose();
            }
            current = null;
            shows = true;
        }
    }

    public static Application current() {
        return current;
    }

    public static void observe(Observer next) {
        observer = next;
    }

    public static void tell(String... call) {
        observer.used(call);
    }

    /** Says on standard error what went wrong in words of the library. */
    public static void complain(String text) {
        System.err.println(text);
    }

    /** Puts something into the window, behind what is there already. */
    public void place(JComponent view) {
        content.add(view, content.getComponentCount() - behind);
        content.revalidate();
        content.repaint(view.getBounds());
    }

    /** Puts something behind all that is there and all that will come. */
    public void placeBehind(JComponent view) {
        content.add(view);
        behind++;
        content.repaint(view.getBounds());
    }

    /** Calls the program's method of that name. What it throws goes on as it is. */
    public void call(String handler) {
        try {
            program.getClass().getMethod(handler).invoke(program);
            observer.called(handler);
        } catch (NoSuchMethodException | IllegalAccessException e) {
            observer.missing(handler);
        } catch (InvocationTargetException e) {
            throw Application.<RuntimeException>asUnchecked(e.getCause());
        }
    }

    @SuppressWarnings("unchecked")
    private static <T extends Throwable> T asUnchecked(Throwable cause) throws T {
        throw (T) cause;
    }
}
