import sum.komponenten.*;
import sum.ereignis.*;

/** Ein Taschenrechner mit Feldern von Knöpfen */
public class Rechner extends sum.ereignis.EBAnwendung
{
    private Knopf[] tasten;
    private Etikett x0;
    Knopf[] felder = { new Knopf(10, 100, 40, 40, "A"), new Knopf(60, 100, 40, 40, "B, C") ,
                       new Knopf(110, 100, 40, 40, "D") };
    Textfeld[][] gitter = new Textfeld[][] {
        { new Textfeld(0, 200, 50, 20, "1"), new Textfeld(50, 200, 50, 20, "2") },
        { new Textfeld(0, 220, 50, 20, "3") }
    };
    Knopf[] paar = { new Knopf(10, 150, 40, 40, "links") { }, new Knopf(60, 150, 40, 40, "rechts") };
    Schalter[] x = new Schalter[2];

    public Rechner()
    {
        super(400, 300);
        tasten = new Knopf[12];
        tasten[0] = new Knopf(10, 10, 40, 40, "0");
        tasten[1] = new Knopf(60, 10, 40, 40, "1", "tasten1Geklickt");
        tasten [ 2 ] = new Knopf (110, 10, 40, 40, "2");
        for (int i = 3; i < 12; i++)
        {
            tasten[i] = new Knopf(10 + 50 * (i % 3), 10 + 50 * (i / 3), 40, 40, "" + i);
        }
        for (int i = 0; i < tasten.length; i++)
            tasten[i].setzeBearbeiterGeklickt("zifferGeklickt");
        for (Knopf feld : felder)
            feld.setzeBearbeiterFokusErhalten("feldGewaehlt");
        x0 = new Etikett(0, 0, 100, 20, "Anzeige");
        x[0] = new Schalter(0, 40, 100, 20, "Komma");
        x[0].schalteAn();
        x[1] = new Schalter(0, 60, 100, 20, "Punkt");
        x[1].setzeBearbeiterGeklickt("x1Geklickt");
        gitter[0][1].setzeBearbeiterInhaltGeaendert("gitter0_1InhaltGeaendert");
        new Etikett(200, 0, 100, 20, "Titel");
        new Etikett(200, 20, 100, 20, "Zeile");
    }
}

class Helfer
{
    Knopf fremd = new Knopf(1, 2, 3, 4, "fremd");
}
