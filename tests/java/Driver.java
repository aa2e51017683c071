import java.awt.*;
import java.awt.event.*;
import java.awt.image.BufferedImage;
import java.io.*;
import java.lang.reflect.*;
import java.nio.charset.StandardCharsets;
import java.sql.*;
import java.util.*;
import java.util.List;
import java.util.concurrent.*;
import java.util.concurrent.atomic.*;
import java.util.stream.*;
import javax.imageio.ImageIO;
import javax.swing.*;
import sum.intern.Application;
import sum.komponenten.*;

/**
 * Starts the generated class SuMAnwendung and prints what its window holds. On the way it uses every component that has
 * handlers with real mouse clicks and keys, chooses every menu entry, and prints which handlers that called.
 *
 * With the name of a PNG file it only paints the client area there, menu bar included.
 *
 * Prints lines of tab-separated columns:
 *
 * <pre>
 * Fenster     client width, client height
 * Komponente  class, field, left, top, width, height (content coordinates), text, registered methods, those that were
 *             called when it was used, or "verdeckt" when the mouse cannot reach it
 * Objekt      class, field of a library object that has no place in the window
 * Menue       depth, type (0 menu, 1 submenu, 2 entry, 3 separator), caption, the methods that choosing it called
 * Methode     name of a method of the program
 * Fehlt       a handler method that the program lacks
 * Datenbank, Ton, Film   a call the library received, with its arguments; the database answers, and with nothing
 * </pre>
 */
public final class Driver {
    private static final int WAIT_MILLISECONDS = 10_000;
    private static final int POLL_MILLISECONDS = 5;

    /** Keys that, after a click on it, raise the events of a kind that a click does not. */
    private static final Map<Class<?>, int[][]> KEYS = Map.of(
        Eingabefeld.class, new int[][] {{KeyEvent.VK_A}, {KeyEvent.VK_ENTER}},
        Tabelle.class, new int[][] {{KeyEvent.VK_A}, {KeyEvent.VK_ENTER}},
        Textbereich.class, new int[][] {{KeyEvent.VK_A}, {KeyEvent.VK_SHIFT, KeyEvent.VK_HOME}},
        Auswahl.class, new int[][] {{KeyEvent.VK_DOWN}, {KeyEvent.VK_ENTER}},
        Regler.class, new int[][] {{KeyEvent.VK_HOME}, {KeyEvent.VK_END}});

    private static final PrintStream OUT = new PrintStream(System.out, true, StandardCharsets.UTF_8);
    /** The program's methods that were called. */
    private static final List<String> CALLED = new CopyOnWriteArrayList<>();

    private final Robot robot = new Robot();
    private final AtomicInteger released = new AtomicInteger();
    private final Object program;
    private final Application window;
    private final JFrame frame;

    private Driver() throws Exception {
        Toolkit.getDefaultToolkit().addAWTEventListener(this::countRelease,
                                                        AWTEvent.MOUSE_EVENT_MASK | AWTEvent.KEY_EVENT_MASK);
        program = onEventThread(() -> Class.forName("SuMAnwendung").getConstructor().newInstance());
        window = Application.current();
        frame = window.frame;
        SwingUtilities.invokeAndWait(frame::validate);
        until("window shown", frame::isShowing);
    }

    public static void main(String[] arguments) {
        Thread.setDefaultUncaughtExceptionHandler((thread, error) -> fail(error));
        try {
            Application.observe(new Listener());
            DriverManager.registerDriver(nothing(java.sql.Driver.class));
            Driver driver = new Driver();
            if (arguments.length == 0) {
                driver.walk();
            } else {
                ImageIO.write(driver.paint(driver.frame.getRootPane()), "png", new File(arguments[0]));
            }
        } catch (Exception e) {
            fail(e);
        }
        Runtime.getRuntime().halt(0);
    }

    private static final class Listener implements Application.Observer {
        @Override
        public void called(String handler) {
            CALLED.add(handler);
        }

        @Override
        public void missing(String handler) {
            print("Fehlt", handler);
        }

        @Override
        public void used(String... call) {
            print((Object[]) call);
        }
    }

    /** Something that takes every call and answers it with nothing: true, 0, or another such thing. */
    private static <T> T nothing(Class<T> type) {
        return type.cast(Proxy.newProxyInstance(Driver.class.getClassLoader(), new Class<?>[] {type},
                                                (self, method, arguments) -> {
            Class<?> answer = method.getReturnType();
            if (answer == boolean.class) {
                return !method.getName().equals("next");
            }
            return answer == int.class ? (Object) 0 : answer.isInterface() ? nothing(answer) : null;
        }));
    }

    /** Prints a line of columns in UTF-8, separated by tabs; tabs, line ends and backslashes in them are escaped. */
    private static void print(Object... columns) {
        OUT.println(Stream.of(columns)
                        .map(column -> column.toString().replace("\\", "\\\\").replace("\t", "\\t")
                                             .replace("\r", "\\r").replace("\n", "\\n").replace("\1", "\\1"))
                        .collect(Collectors.joining("\t")));
    }

    private static void fail(Throwable error) {
        error.printStackTrace();
        Runtime.getRuntime().halt(3);
    }

    private void walk() throws Exception {
        print("Fenster", frame.getRootPane().getWidth(), frame.getRootPane().getHeight());
        for (Field field : program.getClass().getDeclaredFields()) {
            field.setAccessible(true);
            Object value = field.get(program);
            if (value instanceof Komponente<?> component) {
                walk(field.getName(), component);
            } else if (value != null) {
                print("Objekt", value.getClass().getSimpleName(), field.getName());
            }
        }
        for (Component menu : window.menuBar.getComponents()) {
            walk(List.of(), menu);
        }
        Stream.of(program.getClass().getDeclaredMethods()).map(Method::getName).sorted()
            .forEach(name -> print("Methode", name));
    }

    private void walk(String name, Komponente<?> component) throws Exception {
        JComponent view = component.view;
        Point corner = SwingUtilities.convertPoint(view, 0, 0, window.content);
        String text = component.text();
        Collection<String> handlers = component.handlers.values();
        String called = component instanceof FokusKomponente<?> usable && !handlers.isEmpty() ? use(usable) : "";
        print("Komponente", component.getClass().getSimpleName(), name, corner.x, corner.y, view.getWidth(),
              view.getHeight(), text, String.join(",", handlers), called);
    }

    private void walk(List<JMenuItem> above, Component line) throws Exception {
        int depth = above.size();
        if (line instanceof JMenu menu) {
            print("Menue", depth, depth == 0 ? 0 : 1, menu.getText());
            for (Component child : menu.getMenuComponents()) {
                walk(Stream.concat(above.stream(), Stream.of(menu)).toList(), child);
            }
        } else if (line instanceof JMenuItem item) {
            print("Menue", depth, 2, item.getText(), choose(above, item));
        } else {
            print("Menue", depth, 3);
        }
    }

    // What a user does.

    /** Raises every event of a component and gives back the handlers that this called. */
    private String use(FokusKomponente<?> component) throws Exception {
        CALLED.clear();
        Point target = onEventThread(() -> reachablePoint(component));
        if (target == null) {
            return "verdeckt";
        }
        activate();
        if (component instanceof Schaltflaeche button) {
            press(button.input, target);
        } else {
            click(target);
        }
        until("focus on", () -> component.input.isFocusOwner() || component instanceof Auswahl);
        for (Map.Entry<Class<?>, int[][]> keys : KEYS.entrySet()) {
            for (int[] chord : keys.getKey().isInstance(component) ? keys.getValue() : new int[0][]) {
                type(chord);
            }
        }
        SwingUtilities.invokeAndWait(KeyboardFocusManager.getCurrentKeyboardFocusManager()::clearGlobalFocusOwner);
        until("focus off", () -> !component.input.isFocusOwner());
        // A window that becomes active may give the focus to another component first.
        CALLED.removeIf(handler -> handler.matches(".*Fokus(Erhalten|Verloren)")
                                          && !component.handlers.containsValue(handler));
        return String.join(",", new TreeSet<>(CALLED));
    }

    /** A point on the screen where a click meets the component, or null. Tables are met in their first cell. */
    private Point reachablePoint(FokusKomponente<?> component) {
        JComponent aim = component instanceof Tabelle ? component.input : component.view;
        Rectangle part = aim.getVisibleRect();
        Point point = component instanceof Tabelle ? new Point(part.x + 4, part.y + 4)
                                                   : new Point(part.x + part.width / 2, part.y + part.height / 2);
        Point inContent = SwingUtilities.convertPoint(aim, point, window.content);
        Component met = SwingUtilities.getDeepestComponentAt(window.content, inContent.x, inContent.y);
        if (part.isEmpty() || met == null || !SwingUtilities.isDescendingFrom(met, aim)) {
            return null;
        }
        SwingUtilities.convertPointToScreen(point, aim);
        return point;
    }

    /** Clicks through the menus to an entry and gives back the handlers that this called. */
    private String choose(List<JMenuItem> menus, JMenuItem entry) throws Exception {
        CALLED.clear();
        activate();
        for (JMenuItem menu : menus) {
            click(onEventThread(() -> centre(menu)));
            until("menu " + menu.getText(), ((JMenu) menu).getPopupMenu()::isShowing);
        }
        press(entry, onEventThread(() -> centre(entry)));
        return String.join(",", CALLED);
    }

    private static Point centre(Component component) {
        Point corner = component.getLocationOnScreen();
        return new Point(corner.x + component.getWidth() / 2, corner.y + component.getHeight() / 2);
    }

    // Mouse, keyboard and waiting.

    /** Keys reach a window only when it is active, and without a window manager nobody else makes it so. */
    private void activate() throws Exception {
        SwingUtilities.invokeAndWait(frame::toFront);
        SwingUtilities.invokeAndWait(frame::requestFocus);
        until("window active", frame::isActive);
    }

    private void press(AbstractButton button, Point target) throws Exception {
        AtomicBoolean pressed = new AtomicBoolean();
        button.addActionListener(e -> pressed.set(true));
        click(target);
        until("press of " + button.getText(), pressed::get);
    }

    private void click(Point target) throws Exception {
        int before = released.get();
        robot.mouseMove(target.x, target.y);
        robot.mousePress(InputEvent.BUTTON1_DOWN_MASK);
        robot.mouseRelease(InputEvent.BUTTON1_DOWN_MASK);
        until("mouse button up", () -> released.get() >= before + 1);
    }

    private void type(int... chord) throws Exception {
        int before = released.get();
        for (int key : chord) {
            robot.keyPress(key);
        }
        for (int i = chord.length - 1; i >= 0; i--) {
            robot.keyRelease(chord[i]);
        }
        until("keys up", () -> released.get() >= before + chord.length);
    }

    /** The robot's own waiting now and then takes ten seconds, so the events themselves tell when they are through. */
    private void countRelease(AWTEvent event) {
        if (event.getID() == MouseEvent.MOUSE_RELEASED || event.getID() == KeyEvent.KEY_RELEASED) {
            released.incrementAndGet();
        }
    }

    private static void until(String what, Callable<Boolean> condition) throws Exception {
        long end = System.nanoTime() + WAIT_MILLISECONDS * 1_000_000L;
        while (!onEventThread(condition)) {
            if (System.nanoTime() > end) {
                throw new IllegalStateException("waited in vain: " + what);
            }
            Thread.sleep(POLL_MILLISECONDS);
        }
    }

    private static <T> T onEventThread(Callable<T> action) throws Exception {
        FutureTask<T> task = new FutureTask<>(action);
        SwingUtilities.invokeAndWait(task);
        return task.get();
    }

    /** Paints without a focus mark or caret, so that pictures of the same window are always the same. */
    private BufferedImage paint(JComponent area) throws Exception {
        SwingUtilities.invokeAndWait(KeyboardFocusManager.getCurrentKeyboardFocusManager()::clearGlobalFocusOwner);
        until("no focus", () -> frame.getFocusOwner() == null);
        return onEventThread(() -> {
            BufferedImage picture = new BufferedImage(area.getWidth(), area.getHeight(), BufferedImage.TYPE_INT_RGB);
            area.paint(picture.getGraphics());
            return picture;
        });
    }
}
