package sum.komponenten;

import javax.swing.JComponent;
import javax.swing.event.DocumentEvent;
import javax.swing.event.DocumentListener;
import javax.swing.text.JTextComponent;

/** A component whose text the user edits. */
public abstract class Textkomponente<I extends JTextComponent> extends FokusKomponente<I> {
    protected Textkomponente(JComponent view, I editor, double left, double top, double width, double height) {
        super(view, editor, left, top, width, height);
        editor.getDocument().addDocumentListener(new DocumentListener() {
            @Override
            public void insertUpdate(DocumentEvent e) {
                raise("InhaltGeaendert");
            }

            @Override
            public void removeUpdate(DocumentEvent e) {
                raise("InhaltGeaendert");
            }

            @Override
            public void changedUpdate(DocumentEvent e) {
                // Only styles changed, which plain text does not have.
            }
        });
    }

    public void setzeInhalt(String text) {
        input.setText(text);
    }

    public void setzeBearbeiterInhaltGeaendert(String method) {
        setHandler("InhaltGeaendert", method);
    }

    @Override
    public String text() {
        return input.getText();
    }
}
