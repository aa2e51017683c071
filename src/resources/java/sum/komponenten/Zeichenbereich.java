package sum.komponenten;

import javax.swing.*;

/** Text that wraps at words. */
public class Zeichenbereich extends Textbereich {
    public Zeichenbereich(double left, double top, double width, double height, String text) {
        super(wrapping(text), JScrollPane.HORIZONTAL_SCROLLBAR_NEVER, left, top, width, height);
    }

    public Zeichenbereich(double left, double top, double width, double height, String text, String clicked) {
        this(left, top, width, height, text);
        onClick(input, clicked);
    }

    private static JTextArea wrapping(String text) {
        JTextArea area = new JTextArea(text);
        area.setLineWrap(true);
        area.setWrapStyleWord(true);
        return area;
    }
}
