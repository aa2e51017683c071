package sum.komponenten;

import javax.swing.JComponent;
import javax.swing.text.JTextComponent;

/** A component whose text the user edits. */
public abstract class Textkomponente<I extends JTextComponent> extends FokusKomponente<I> {
    protected Textkomponente(JComponent view, I editor, double left, double top, double width, double height) {
        super(view, editor, left, top, width, height);
        editor.getDocument().addUndoableEditListener(e -> raise("InhaltGeaendert"));
    }

    public void setzeInhalt(String text) {
        input.setText(text);
    }

    public void setzeBearbeiterInhaltGeaendert(String method) {
        handlers.put("InhaltGeaendert", method);
    }

    @Override
    public String text() {
        return input.getText();
    }
}
