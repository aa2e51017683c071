package sum.komponenten;

import javax.swing.*;

/** Text whose lines stay as they are and scroll sideways. */
public class Zeilenbereich extends Textbereich {
    public Zeilenbereich(double left, double top, double width, double height, String text) {
        super(new JTextArea(text), JScrollPane.HORIZONTAL_SCROLLBAR_AS_NEEDED, left, top, width, height);
    }

    public Zeilenbereich(double left, double top, double width, double height, String text, String clicked) {
        this(left, top, width, height, text);
        onClick(input, clicked);
    }
}
