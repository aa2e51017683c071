package sum.komponenten;

import java.awt.Color;
import java.util.ArrayList;
import java.util.List;
import javax.swing.JComboBox;

public class Auswahl extends FokusKomponente<JComboBox<String>> {
    public Auswahl(double left, double top, double width, double height) {
        super(new Box(), left, top, width, height);
        input.setBackground(Color.WHITE);
        input.addActionListener(e -> raise("Geaendert"));
    }

    public void haengeAn(String entry) {
        input.addItem(entry);
    }

    public void setzeBearbeiterGeaendert(String method) {
        setHandler("Geaendert", method);
    }

    @Override
    public String text() {
        List<String> entries = new ArrayList<>();
        for (int i = 0; i < input.getItemCount(); i++) {
            entries.add(input.getItemAt(i));
        }
        return String.join("\1", entries);
    }

    /** Without entries there is nothing to unfold, and the arrow stays away until the first one comes. */
    private static final class Box extends JComboBox<String> {
        @Override
        public void doLayout() {
            if (getItemCount() > 0) {
                super.doLayout();
            }
        }
    }
}
