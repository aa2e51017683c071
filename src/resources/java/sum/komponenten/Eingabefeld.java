package sum.komponenten;

import javax.swing.JTextField;

/** One line of text that the Enter key confirms. */
public abstract class Eingabefeld<I extends JTextField> extends Textkomponente<I> {
    protected Eingabefeld(I field, double left, double top, double width, double height) {
        super(field, field, left, top, width, height);
        field.addActionListener(e -> raise("EingabeBestaetigt"));
    }

    public void setzeBearbeiterEingabeBestaetigt(String method) {
        handlers.put("EingabeBestaetigt", method);
    }
}
