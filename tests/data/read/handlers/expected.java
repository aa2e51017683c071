import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Etikett ausgabe;
    Knopf start;
    Knopf stopp;
    Knopf neu;
    Textfeld eingabe;
    Radiogruppe farbe;
    Radioknopf rot;
    Radioknopf blau;
    Radioknopf hatRadioKnopf1;
    Menue hatMenueTemp;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(500, 400);
        ausgabe = new Etikett(10, 70, 100, 20, "bereit");
        start = new Knopf(10, 40, 80, 25, "Start");
        start.setzeBearbeiterGeklickt("startGeklickt");
        start.setzeBearbeiterFokusErhalten("startFokusErhalten");
        stopp = new Knopf(100, 40, 80, 25, "Stopp");
        stopp.setzeBearbeiterGeklickt("stoppGeklickt");
        neu = new Knopf(10, 300, 80, 25, "Neu");
        neu.setzeBearbeiterGeklickt("neuGeklickt");
        eingabe = new Textfeld(10, 10, 100, 20, "hier");
        eingabe.setzeBearbeiterInhaltGeaendert("eingabeInhaltGeaendert");
        eingabe.setzeBearbeiterEingabeBestaetigt("eingabeEingabeBestaetigt");
        farbe = new Radiogruppe();
        rot = new Radioknopf(100, 100, 80, 20, "rot");
        rot.setzeBearbeiterGeklickt("rotGeklickt");
        farbe.fuegeEin(rot);
        blau = new Radioknopf(100, 130, 90, 20, "blau");
        blau.setzeBearbeiterGeklickt("blauGeklickt");
        farbe.fuegeEin(blau);
        hatRadioKnopf1 = new Radioknopf(90, 190, 50, 20, "direkt");
        hatRadioKnopf1.setzeBearbeiterGeklickt("hatRadioKnopf1Geklickt");
        farbe.fuegeEin(hatRadioKnopf1);
    }

    public void startGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void startFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void stoppGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void neuGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void eingabeInhaltGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void eingabeEingabeBestaetigt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void rotGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void blauGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatRadioKnopf1Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

}