import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Etikett hatEtikett1;
    Etikett hatEtikett2;
    Etikett hatEtikett3;
    Knopf hatKnopf1;
    Textfeld hatTextfeld1;
    Zeichenbereich hatZeichenbereich1;
    Zeilenbereich hatZeilenbereich1;
    Kennwortfeld hatPasswortfeld1;
    Schalter hatSchalter1;
    Radiogruppe hatOptionsgruppe1;
    Radioknopf hatA;
    Radioknopf hatB;
    Radiogruppe hatOptionsgruppe2;
    Auswahl hatAuswahl1;
    Auswahl hatAuswahl2;
    Regler hatRegler1;
    Fortschrittsbalken hatFortschrittsbalken1;
    Tabelle hatTabelle1;
    Tabelle hatTabelle2;
    Bild hatBild1;
    Ton hatTon1;
    Film hatFilm1;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(640, 480);
        hatEtikett1 = new Etikett(1, 2, 3, 4, "Text");
        hatEtikett2 = new Etikett(1, 2, 3, 4, "");
        hatEtikett2.setzeAusrichtung(1);
        hatEtikett3 = new Etikett(-5, -6, 3, 4, "x");
        hatEtikett3.setzeAusrichtung(2);
        hatEtikett3.setzeSchriftgroesse(24);
        hatKnopf1 = new Knopf(10, 20, 30, 40, "Knopf");
        hatTextfeld1 = new Textfeld(10, 20, 30, 40, "t");
        hatZeichenbereich1 = new Zeichenbereich(10, 20, 30, 40, "a");
        hatZeilenbereich1 = new Zeilenbereich(10, 20, 30, 40, "b");
        hatPasswortfeld1 = new Kennwortfeld(10, 20, 30, 40, '#');
        hatSchalter1 = new Schalter(10, 20, 30, 40, "s");
        hatOptionsgruppe1 = new Radiogruppe();
        hatA = new Radioknopf(100, 200, 150, 20, "");
        hatA.setzeBearbeiterGeklickt("hatAGeklickt");
        hatOptionsgruppe1.fuegeEin(hatA);
        hatB = new Radioknopf(97, 225, 100, 21, "b");
        hatB.setzeBearbeiterGeklickt("hatBGeklickt");
        hatOptionsgruppe1.fuegeEin(hatB);
        hatOptionsgruppe2 = new Radiogruppe();
        hatAuswahl1 = new Auswahl(10, 20, 30, 40);
        hatAuswahl1.haengeAn("eins");
        hatAuswahl1.haengeAn("");
        hatAuswahl1.haengeAn("drei");
        hatAuswahl2 = new Auswahl(10, 20, 30, 40);
        hatRegler1 = new Regler(10, 20, 30, 40, 5, -10, 10);
        hatFortschrittsbalken1 = new Fortschrittsbalken(10, 20, 30, 40, -1, 7);
        hatFortschrittsbalken1.setzeWert(0);
        hatTabelle1 = new Tabelle(10, 20, 30, 40, 0, 2);
        hatTabelle1.setzeSpaltentitelAn("A", 1);
        hatTabelle1.setzeSpaltentitelAn("B", 2);
        hatTabelle2 = new Tabelle(10, 20, 30, 40, 9, 0);
        hatBild1 = new Bild(10, 20, 30, 40, "C:\\a\\b.bmp");
        hatTon1 = new Ton();
        hatTon1.ladeTon("\\\\server\\x.wav");
        //hatTon1.spieleTon();  // <- zum sofortigen Abspielen dekommentieren

        hatFilm1 = new Film("");
    }

    public void hatAGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatBGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

}