package sum.multimedia;

import java.io.File;
import javax.sound.sampled.AudioInputStream;
import javax.sound.sampled.AudioSystem;
import javax.sound.sampled.Clip;
import sum.intern.Application;

/** A sound that is played beside the program, which does not wait for its end. */
public class Ton {
    private String path = "";

    /** Only remembers the file: opening the loudspeaker takes time, and most programs load long before they play. */
    public void ladeTon(String path) {
        Application.tell("Ton", "ladeTon", path);
        this.path = path;
    }

    public void spieleTon() {
        Application.tell("Ton", "spieleTon", path);
        String played = path;
        Thread player = new Thread(() -> play(played), "Ton");
        player.setDaemon(true);
        player.start();
    }

    private static void play(String path) {
        try (AudioInputStream sound = AudioSystem.getAudioInputStream(new File(path))) {
            Clip clip = AudioSystem.getClip();
            clip.addLineListener(event -> {
                if (event.getType() == javax.sound.sampled.LineEvent.Type.STOP) {
                    clip.close();
                }
            });
            clip.open(sound);
            clip.start();
        } catch (Exception e) {
            Application.complain("Der Ton »" + path + "« kann nicht gespielt werden: " + e.getMessage());
        }
    }
}
