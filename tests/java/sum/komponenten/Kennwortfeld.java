package sum.komponenten;

import javax.swing.JPasswordField;

public class Kennwortfeld extends Eingabefeld {
    private final JPasswordField field;

    public Kennwortfeld(double left, double top, double width, double height, char shown) {
        this(new JPasswordField(), left, top, width, height, shown);
    }

    private Kennwortfeld(JPasswordField field, double left, double top, double width, double height, char shown) {
        super(field, left, top, width, height);
        this.field = field;
        field.setEchoChar(shown);
    }

    /** The character shown for every typed one: the constructor's only text. */
    @Override
    public String text() {
        return String.valueOf(field.getEchoChar());
    }
}
