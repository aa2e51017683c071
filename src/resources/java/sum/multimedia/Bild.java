package sum.multimedia;

import java.awt.Graphics;
import java.awt.Image;
import javax.swing.ImageIcon;
import javax.swing.JComponent;
import sum.komponenten.Komponente;

/** Shows an image file in the image's own size; an unreadable file leaves its rectangle empty. */
public class Bild extends Komponente<JComponent> {
    private final String path;

    public Bild(double left, double top, double width, double height, String path) {
        this(new ImageIcon(path).getImage(), left, top, width, height, path);
    }

    public Bild(double left, double top, double width, double height, String path, String clicked) {
        this(left, top, width, height, path);
        onClick(view, clicked);
    }

    private Bild(Image image, double left, double top, double width, double height, String path) {
        super(new Picture(image), left, top, image.getWidth(null) > 0 ? image.getWidth(null) : width,
              image.getHeight(null) > 0 ? image.getHeight(null) : height);
        this.path = path;
    }

    @Override
    public String text() {
        return path;
    }

    private static final class Picture extends JComponent {
        private final transient Image image;

        private Picture(Image image) {
            this.image = image;
        }

        @Override
        protected void paintComponent(Graphics g) {
            g.drawImage(image, 0, 0, this);
        }
    }
}
