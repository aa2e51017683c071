import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Etikett hatTitel;
    Knopf hatB;
    Knopf hatA;
    Knopf hatC;
    Zeichenbereich bereich;
    Kennwortfeld kennwort;
    Auswahl auswahl;
    Regler regler;
    Fortschrittsbalken balken;
    Tabelle tabelle;
    Bild bild;
    Ton ton;
    Film film;
    Menue hatMenueTemp;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(800, 600);
        hatTitel = new Etikett(0, 0, 200, 30, "Straﬂe \"Mitte\", Ecke \\ Ende");
        hatTitel.setzeAusrichtung(2);
        hatTitel.setzeSchriftgroesse(24);
        hatB = new Knopf(10, 20, 80, 25, "B");
        hatB.setzeBearbeiterFokusVerloren("hatBFokusVerloren");
        hatA = new Knopf(10, 50, 80, 25, "A");
        hatA.setzeBearbeiterGeklickt("hatAGeklickt");
        hatC = new Knopf(10, 80, 80, 25, "Ende // kein Kommentar");
        bereich = new Zeichenbereich(440, 240, 100, 100, "neu\tin zwei Teilen");
        kennwort = new Kennwortfeld(440, 80, 100, 20, '\'');
        kennwort.setzeInhalt("geheim");
        auswahl = new Auswahl(100, 10, 90, 20);
        auswahl.haengeAn("eins");
        auswahl.haengeAn("");
        auswahl.haengeAn("drei, vier");
        auswahl.setzeBearbeiterGeaendert("auswahlGeaendert");
        regler = new Regler(100, 50, 20, 200, 5, -10, 10);
        balken = new Fortschrittsbalken(130, 50, 200, 20, 1, 9);
        balken.setzeWert(4);
        tabelle = new Tabelle(130, 80, 300, 200, 4, 2);
        tabelle.setzeSpaltentitelAn("Wort; {alt}", 1);
        tabelle.setzeSpaltentitelAn("‹bersetzung", 2);
        tabelle.setzeBearbeiterMarkierungGeaendert("tabelleMarkierungGeaendert");
        bild = new Bild(440, 110, 160, 120, "C:\\Bilder\\haus.gif");
        ton = new Ton();
        ton.ladeTon("klang.wav");
        //ton.spieleTon();  // <- zum sofortigen Abspielen dekommentieren

        film = new Film("c:\\film.mov");
    }

    public void hatBFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingef¸gt
    }

    public void hatAGeklickt()
    {
        //   Hier wird der Methodeninhalt eingef¸gt
    }

    public void auswahlGeaendert()
    {
        //   Hier wird der Methodeninhalt eingef¸gt
    }

    public void tabelleMarkierungGeaendert()
    {
        //   Hier wird der Methodeninhalt eingef¸gt
    }

}