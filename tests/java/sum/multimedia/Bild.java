package sum.multimedia;

import java.awt.*;
import javax.swing.*;
import sum.komponenten.Komponente;

/** Shows an image file stretched over its rectangle; an unreadable file leaves it empty. */
public class Bild extends Komponente<JComponent> {
    private final String path;

    public Bild(double left, double top, double width, double height, String path) {
        super(new JComponent() {
            private final transient Image image = new ImageIcon(path).getImage();

            @Override
            protected void paintComponent(Graphics g) {
                g.drawImage(image, 0, 0, getWidth(), getHeight(), this);
            }
        }, left, top, width, height);
        this.path = path;
    }

    @Override
    public String text() {
        return path;
    }
}
