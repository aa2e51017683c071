import java.awt.AWTEvent;
import java.awt.Component;
import java.awt.KeyboardFocusManager;
import java.awt.Point;
import java.awt.Rectangle;
import java.awt.Robot;
import java.awt.Toolkit;
import java.awt.event.InputEvent;
import java.awt.event.KeyEvent;
import java.awt.event.MouseEvent;
import java.awt.image.BufferedImage;
import java.io.File;
import java.io.PrintStream;
import java.lang.reflect.Field;
import java.lang.reflect.Method;
import java.nio.charset.StandardCharsets;
import java.util.Arrays;
import java.util.Iterator;
import java.util.List;
import java.util.concurrent.Callable;
import java.util.concurrent.FutureTask;
import java.util.concurrent.atomic.AtomicBoolean;
import java.util.concurrent.atomic.AtomicInteger;
import javax.imageio.ImageIO;
import javax.swing.AbstractButton;
import javax.swing.JComponent;
import javax.swing.JMenu;
import javax.swing.JMenuItem;
import javax.swing.JPopupMenu;
import javax.swing.SwingUtilities;
import sum.intern.Application;
import sum.komponenten.Auswahl;
import sum.komponenten.Eingabefeld;
import sum.komponenten.FokusKomponente;
import sum.komponenten.Komponente;
import sum.komponenten.Regler;
import sum.komponenten.Schaltflaeche;
import sum.komponenten.Tabelle;
import sum.komponenten.Textbereich;

/**
 * Starts the generated class SuMAnwendung and does with it what the arguments say, one after another:
 *
 * <pre>
 * list           prints what the window holds, see below
 * use FIELD      raises every event of the component in that field with real mouse clicks and keys
 * menu PATH      clicks through the menus to an entry; the captions on the way are separated by tabs
 * picture FILE   saves the client area, menu bar included, as PNG
 * compare FILE   compares the client area with a PNG
 * </pre>
 *
 * Prints UTF-8 lines of tab-separated columns (tab, line ends and backslash escaped inside a column):
 *
 * <pre>
 * Fenster     client width, client height, top of the content in the client area
 * Komponente  class, field, left, top, width, height (content coordinates), text, registered methods
 * Objekt      class, field of a library object that has no place in the window
 * Menue       depth, type (0 menu, 1 submenu, 2 entry, 3 separator), caption
 * Methode     name of a public method of the program
 * Schritt     the use or menu command that begins now
 * Verdeckt    the component of this step cannot be reached with the mouse
 * Bearbeiter  the handler method that the library calls now
 * Vergleich   number of pixels that differ from the compared picture, number of pixels in all
 * Fehlt       a handler method that the program lacks
 * Datenbank, Ton, Film   a call the library received, with its arguments
 * </pre>
 */
public final class Driver {
    private static final int WAIT_MILLISECONDS = 10_000;
    private static final int POLL_MILLISECONDS = 5;
    private static final PrintStream OUT = new PrintStream(System.out, true, StandardCharsets.UTF_8);

    private final Robot robot;
    private final Object program;
    private final AtomicInteger released = new AtomicInteger();

    private Driver() throws Exception {
        robot = new Robot();
        Toolkit.getDefaultToolkit().addAWTEventListener(this::countRelease,
                                                        AWTEvent.MOUSE_EVENT_MASK | AWTEvent.KEY_EVENT_MASK);
        program = onEventThread(() -> Class.forName("SuMAnwendung").getConstructor().newInstance());
        SwingUtilities.invokeAndWait(() -> frame().validate());
        until("window shown", () -> frame().isShowing());
    }

    public static void main(String[] arguments) {
        Thread.setDefaultUncaughtExceptionHandler((thread, error) -> fail(error));
        Application.setLog(columns -> print((Object[]) columns));
        try {
            Driver driver = new Driver();
            for (Iterator<String> words = Arrays.asList(arguments).iterator(); words.hasNext();) {
                driver.run(words.next(), words);
            }
        } catch (Exception e) {
            fail(e);
        }
        OUT.flush();
        Runtime.getRuntime().halt(0);
    }

    private static void fail(Throwable error) {
        error.printStackTrace();
        OUT.flush();
        Runtime.getRuntime().halt(3);
    }

    private void run(String command, Iterator<String> words) throws Exception {
        switch (command) {
            case "list" -> onEventThread(this::list);
            case "use" -> use(words.next());
            case "menu" -> menu(words.next());
            case "picture" -> ImageIO.write(paint(frame().getRootPane()), "png", new File(words.next()));
            case "compare" -> compare(paint(frame().getRootPane()), ImageIO.read(new File(words.next())));
            default -> throw new IllegalArgumentException(command);
        }
    }

    private static javax.swing.JFrame frame() {
        return Application.current().frame();
    }

    private static JComponent content() {
        return Application.current().content();
    }

    // What the window holds.

    private Void list() throws IllegalAccessException {
        JComponent client = frame().getRootPane();
        print("Fenster", client.getWidth(), client.getHeight(),
              SwingUtilities.convertPoint(content(), 0, 0, client).y);
        for (Field field : program.getClass().getDeclaredFields()) {
            field.setAccessible(true);
            listField(field.getName(), field.get(program));
        }
        for (Component menu : Application.current().menuBar().getComponents()) {
            listMenu(0, menu);
        }
        for (Method method : program.getClass().getDeclaredMethods()) {
            print("Methode", method.getName());
        }
        return null;
    }

    private void listField(String name, Object value) {
        if (value instanceof Komponente<?> component) {
            Point origin = content().getLocationOnScreen();
            Point corner = component.view().getLocationOnScreen();
            print("Komponente", value.getClass().getSimpleName(), name, corner.x - origin.x, corner.y - origin.y,
                  component.view().getWidth(), component.view().getHeight(), component.text(),
                  String.join(",", component.handlers().values()));
        } else if (value != null) {
            print("Objekt", value.getClass().getSimpleName(), name);
        }
    }

    private void listMenu(int depth, Component line) {
        if (line instanceof JMenu menu) {
            print("Menue", depth, depth == 0 ? 0 : 1, menu.getText());
            for (Component child : menu.getMenuComponents()) {
                listMenu(depth + 1, child);
            }
        } else if (line instanceof JMenuItem item) {
            print("Menue", depth, 2, item.getText());
        } else {
            print("Menue", depth, 3, "");
        }
    }

    private static void print(Object... columns) {
        StringBuilder line = new StringBuilder();
        for (Object column : columns) {
            line.append(line.length() == 0 ? "" : "\t")
                .append(column.toString().replace("\\", "\\\\").replace("\t", "\\t").replace("\r", "\\r")
                              .replace("\n", "\\n"));
        }
        OUT.println(line);
    }

    // What a user does.

    private void use(String name) throws Exception {
        print("Schritt", "use", name);
        Field field = program.getClass().getDeclaredField(name);
        field.setAccessible(true);
        FokusKomponente<?> component = (FokusKomponente<?>) field.get(program);
        Point target = onEventThread(() -> reachablePoint(component));
        if (target == null) {
            print("Verdeckt", name);
            return;
        }
        activate();
        if (component instanceof Schaltflaeche button) {
            press(button.input(), target);
        } else {
            click(target);
        }
        until("focus on " + name, () -> component.input().isFocusOwner() || component instanceof Auswahl);
        for (int[] chord : keysFor(component)) {
            type(chord);
        }
        SwingUtilities.invokeAndWait(KeyboardFocusManager.getCurrentKeyboardFocusManager()::clearGlobalFocusOwner);
        until("focus off " + name, () -> !component.input().isFocusOwner());
    }

    /** Keys that, after a click on it, raise the events of a kind that a click does not. */
    private static List<int[]> keysFor(FokusKomponente<?> component) {
        int[] letter = {KeyEvent.VK_A};
        int[] enter = {KeyEvent.VK_ENTER};
        if (component instanceof Eingabefeld<?> || component instanceof Tabelle) {
            return List.of(letter, enter);
        }
        if (component instanceof Textbereich) {
            return List.of(letter, new int[] {KeyEvent.VK_SHIFT, KeyEvent.VK_HOME});
        }
        if (component instanceof Auswahl) {
            return List.of(new int[] {KeyEvent.VK_DOWN}, enter);
        }
        if (component instanceof Regler) {
            return List.of(new int[] {KeyEvent.VK_HOME}, new int[] {KeyEvent.VK_END});
        }
        return List.of();
    }

    /** A point on the screen where a click meets the component, or null. Tables are met in their first cell. */
    private Point reachablePoint(FokusKomponente<?> component) {
        JComponent aim = component instanceof Tabelle ? component.input() : component.view();
        Rectangle part = aim.getVisibleRect();
        Point point = component instanceof Tabelle ? new Point(part.x + 4, part.y + 4)
                                                   : new Point(part.x + part.width / 2, part.y + part.height / 2);
        Point inContent = SwingUtilities.convertPoint(aim, point, content());
        Component met = SwingUtilities.getDeepestComponentAt(content(), inContent.x, inContent.y);
        if (part.isEmpty() || met == null || !SwingUtilities.isDescendingFrom(met, aim)) {
            return null;
        }
        SwingUtilities.convertPointToScreen(point, aim);
        return point;
    }

    private void menu(String path) throws Exception {
        print("Schritt", "menu", path);
        activate();
        Component[] lines = Application.current().menuBar().getComponents();
        for (String caption : path.split("\t")) {
            JMenuItem line = find(lines, caption);
            if (line instanceof JMenu menu) {
                click(onEventThread(() -> centre(menu)));
                JPopupMenu popup = menu.getPopupMenu();
                until("menu " + caption, popup::isShowing);
                lines = menu.getMenuComponents();
            } else {
                press(line, onEventThread(() -> centre(line)));
            }
        }
    }

    private static JMenuItem find(Component[] lines, String caption) {
        for (Component line : lines) {
            if (line instanceof JMenuItem item && item.getText().equals(caption)) {
                return item;
            }
        }
        throw new IllegalArgumentException("no menu line " + caption);
    }

    private static Point centre(Component component) {
        Point corner = component.getLocationOnScreen();
        return new Point(corner.x + component.getWidth() / 2, corner.y + component.getHeight() / 2);
    }

    // Mouse, keyboard and waiting.

    /** Keys reach a window only when it is active, and without a window manager nobody else makes it so. */
    private void activate() throws Exception {
        SwingUtilities.invokeAndWait(frame()::toFront);
        SwingUtilities.invokeAndWait(frame()::requestFocus);
        until("window active", () -> frame().isActive());
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

    private void until(String what, Callable<Boolean> condition) throws Exception {
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
        until("no focus", () -> frame().getFocusOwner() == null);
        return onEventThread(() -> {
            BufferedImage picture = new BufferedImage(area.getWidth(), area.getHeight(), BufferedImage.TYPE_INT_RGB);
            area.paint(picture.getGraphics());
            return picture;
        });
    }

    private static void compare(BufferedImage shown, BufferedImage wanted) {
        int width = Math.max(shown.getWidth(), wanted.getWidth());
        int height = Math.max(shown.getHeight(), wanted.getHeight());
        Rectangle common = new Rectangle(shown.getWidth(), shown.getHeight())
                               .intersection(new Rectangle(wanted.getWidth(), wanted.getHeight()));
        int different = width * height - common.width * common.height;
        for (int y = 0; y < common.height; y++) {
            for (int x = 0; x < common.width; x++) {
                different += (shown.getRGB(x, y) ^ wanted.getRGB(x, y)) << 8 == 0 ? 0 : 1;
            }
        }
        print("Vergleich", different, width * height);
    }
}
