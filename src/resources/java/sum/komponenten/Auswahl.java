package sum.komponenten;

import java.awt.Color;
import java.util.stream.*;
import javax.swing.JComboBox;

public class Auswahl extends FokusKomponente<JComboBox<String>> {
    public Auswahl(double left, double top, double width, double height) {
        super(new Box(), left, top, width, height);
        input.setBackground(Color.WHITE);
        input.addActionListener(e -> raise("Geaendert"));
    }

    public Auswahl(double left, double top, double width, double height, String clicked) {
        this(left, top, width, height);
        onClick(input, clicked);
    }

    public void haengeAn(String entry) {
        input.addItem(entry);
    }

    public void setzeBearbeiterGeaendert(String method) {
        handlers.put("Geaendert", method);
    }

    @Override
    public String text() {
        return IntStream.range(0, input.getItemCount()).mapToObj(input::getItemAt).collect(Collectors.joining("\1"));
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
