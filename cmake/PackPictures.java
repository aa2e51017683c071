import java.awt.image.BufferedImage;
import java.io.ByteArrayOutputStream;
import java.io.File;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import javax.imageio.ImageIO;

/**
 * Run by the build: PackPictures FOLDER PICTURE... writes each PICTURE.png into the folder as PICTURE.packed.
 *
 * All numbers begin with their lowest byte: width and height (two bytes each), then the pixels row by row as runs of a
 * length (one byte, never 0) and a colour (blue, green, red, alpha).
 */
public final class PackPictures {
    private static final int LONGEST_RUN = 255;

    private PackPictures() {
    }

    public static void main(String[] arguments) throws IOException {
        for (int i = 1; i < arguments.length; i++) {
            File picture = new File(arguments[i]);
            Path packed = Path.of(arguments[0], picture.getName().replace(".png", ".packed"));
            Files.write(packed, pack(ImageIO.read(picture)));
        }
    }

    private static byte[] pack(BufferedImage picture) {
        int width = picture.getWidth();
        int[] pixels = picture.getRGB(0, 0, width, picture.getHeight(), null, 0, width);
        ByteArrayOutputStream bytes = new ByteArrayOutputStream();
        write(bytes, width, 2);
        write(bytes, picture.getHeight(), 2);
        for (int begin = 0, end; begin < pixels.length; begin = end) {
            end = begin + 1;
            while (end < pixels.length && pixels[end] == pixels[begin] && end - begin < LONGEST_RUN) {
                end++;
            }
            write(bytes, end - begin, 1);
            write(bytes, pixels[begin], 4);
        }
        return bytes.toByteArray();
    }

    private static void write(ByteArrayOutputStream bytes, int number, int count) {
        for (int i = 0; i < count; i++) {
            bytes.write(number >> 8 * i);
        }
    }
}
