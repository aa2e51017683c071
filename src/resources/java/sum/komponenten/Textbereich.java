package sum.komponenten;

import javax.swing.*;

/** Several lines of text under scroll bars. */
public abstract class Textbereich extends Textkomponente<JTextArea> {
    private String marked = "";

    protected Textbereich(JTextArea area, int horizontalBar, double left, double top, double width, double height) {
        super(new JScrollPane(area, JScrollPane.VERTICAL_SCROLLBAR_ALWAYS, horizontalBar), area, left, top, width,
              height);
        area.addCaretListener(e -> {
            String now = area.getSelectedText() == null ? "" : area.getSelectedText();
            if (!now.equals(marked)) {
                marked = now;
                raise("MarkierungGeaendert");
            }
        });
    }

    public void setzeBearbeiterMarkierungGeaendert(String method) {
        handlers.put("MarkierungGeaendert", method);
    }
}
