import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Etikett x0;
    Etikett hatEtikett1;
    Etikett hatEtikett2;
    Knopf felder0;
    Knopf felder1;
    Knopf felder2;
    Knopf tasten0;
    Knopf tasten1;
    Knopf tasten2;
    Textfeld gitter0_0;
    Textfeld gitter0_1;
    Textfeld gitter1_0;
    Schalter x0_2;
    Schalter x1;
    Menue hatMenueTemp;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(400, 300);
        x0 = new Etikett(0, 0, 100, 20, "Anzeige");
        hatEtikett1 = new Etikett(200, 0, 100, 20, "Titel");
        hatEtikett2 = new Etikett(200, 20, 100, 20, "Zeile");
        felder0 = new Knopf(10, 100, 40, 40, "A");
        felder0.setzeBearbeiterFokusErhalten("felder0FokusErhalten");
        felder1 = new Knopf(60, 100, 40, 40, "B, C");
        felder1.setzeBearbeiterFokusErhalten("felder1FokusErhalten");
        felder2 = new Knopf(110, 100, 40, 40, "D");
        felder2.setzeBearbeiterFokusErhalten("felder2FokusErhalten");
        tasten0 = new Knopf(10, 10, 40, 40, "0");
        tasten0.setzeBearbeiterGeklickt("tasten0Geklickt");
        tasten1 = new Knopf(60, 10, 40, 40, "1");
        tasten1.setzeBearbeiterGeklickt("tasten1Geklickt");
        tasten2 = new Knopf(110, 10, 40, 40, "2");
        tasten2.setzeBearbeiterGeklickt("tasten2Geklickt");
        gitter0_0 = new Textfeld(0, 200, 50, 20, "1");
        gitter0_1 = new Textfeld(50, 200, 50, 20, "2");
        gitter0_1.setzeBearbeiterInhaltGeaendert("gitter0_1InhaltGeaendert");
        gitter1_0 = new Textfeld(0, 220, 50, 20, "3");
        x0_2 = new Schalter(0, 40, 100, 20, "Komma");
        x0_2.schalteAn();
        x1 = new Schalter(0, 60, 100, 20, "Punkt");
        x1.setzeBearbeiterGeklickt("x1Geklickt");
    }

    public void felder0FokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void felder1FokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void felder2FokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void tasten0Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void tasten1Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void tasten2Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void gitter0_1InhaltGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void x1Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

}