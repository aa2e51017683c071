import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Etikett hatHinweis;
    Knopf hatKnopf7;
    Knopf hatKnopf8;
    Knopf hatKnopf9;
    Knopf hatKnopfGeteilt;
    Knopf hatKnopf4;
    Knopf hatKnopf5;
    Knopf hatKnopf6;
    Knopf hatKnopfMal;
    Knopf hatKnopf1;
    Knopf hatKnopf2;
    Knopf hatKnopf3;
    Knopf hatKnopfMinus;
    Knopf hatKnopf0;
    Knopf hatKnopfKomma;
    Knopf hatKnopfGleich;
    Knopf hatKnopfPlus;
    Knopf hatKnopfLoeschen;
    Textfeld hatAnzeige;
    Schalter hatSchalterGanzzahl;
    Menue hatMenueTemp;
    Menue hatMenueDatei;
    Menue hatMenueAnsicht;
    Menue hatMenueHilfe;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(340, 420);
        hatHinweis = new Etikett(20, 55, 300, 20, "Eingabe mit Maus oder Tastatur");
        hatHinweis.setzeAusrichtung(1);
        hatHinweis.setzeSchriftgroesse(11);
        hatKnopf7 = new Knopf(20, 90, 60, 40, "7");
        hatKnopf7.setzeBearbeiterGeklickt("hatKnopf7Geklickt");
        hatKnopf8 = new Knopf(100, 90, 60, 40, "8");
        hatKnopf8.setzeBearbeiterGeklickt("hatKnopf8Geklickt");
        hatKnopf9 = new Knopf(180, 90, 60, 40, "9");
        hatKnopf9.setzeBearbeiterGeklickt("hatKnopf9Geklickt");
        hatKnopfGeteilt = new Knopf(260, 90, 60, 40, "/");
        hatKnopfGeteilt.setzeBearbeiterGeklickt("hatKnopfGeteiltGeklickt");
        hatKnopf4 = new Knopf(20, 150, 60, 40, "4");
        hatKnopf4.setzeBearbeiterGeklickt("hatKnopf4Geklickt");
        hatKnopf5 = new Knopf(100, 150, 60, 40, "5");
        hatKnopf5.setzeBearbeiterGeklickt("hatKnopf5Geklickt");
        hatKnopf6 = new Knopf(180, 150, 60, 40, "6");
        hatKnopf6.setzeBearbeiterGeklickt("hatKnopf6Geklickt");
        hatKnopfMal = new Knopf(260, 150, 60, 40, "*");
        hatKnopfMal.setzeBearbeiterGeklickt("hatKnopfMalGeklickt");
        hatKnopf1 = new Knopf(20, 210, 60, 40, "1");
        hatKnopf1.setzeBearbeiterGeklickt("hatKnopf1Geklickt");
        hatKnopf2 = new Knopf(100, 210, 60, 40, "2");
        hatKnopf2.setzeBearbeiterGeklickt("hatKnopf2Geklickt");
        hatKnopf3 = new Knopf(180, 210, 60, 40, "3");
        hatKnopf3.setzeBearbeiterGeklickt("hatKnopf3Geklickt");
        hatKnopfMinus = new Knopf(260, 210, 60, 40, "-");
        hatKnopfMinus.setzeBearbeiterGeklickt("hatKnopfMinusGeklickt");
        hatKnopf0 = new Knopf(20, 270, 60, 40, "0");
        hatKnopf0.setzeBearbeiterGeklickt("hatKnopf0Geklickt");
        hatKnopfKomma = new Knopf(100, 270, 60, 40, ",");
        hatKnopfKomma.setzeBearbeiterGeklickt("hatKnopfKommaGeklickt");
        hatKnopfGleich = new Knopf(180, 270, 60, 40, "=");
        hatKnopfGleich.setzeBearbeiterGeklickt("hatKnopfGleichGeklickt");
        hatKnopfPlus = new Knopf(260, 270, 60, 40, "+");
        hatKnopfPlus.setzeBearbeiterGeklickt("hatKnopfPlusGeklickt");
        hatKnopfLoeschen = new Knopf(20, 340, 140, 40, "Löschen");
        hatKnopfLoeschen.setzeBearbeiterGeklickt("hatKnopfLoeschenGeklickt");
        hatKnopfLoeschen.setzeBearbeiterFokusErhalten("hatKnopfLoeschenFokusErhalten");
        hatKnopfLoeschen.setzeBearbeiterFokusVerloren("hatKnopfLoeschenFokusVerloren");
        hatAnzeige = new Textfeld(20, 20, 300, 30, "0");
        hatAnzeige.setzeBearbeiterInhaltGeaendert("hatAnzeigeInhaltGeaendert");
        hatAnzeige.setzeBearbeiterEingabeBestaetigt("hatAnzeigeEingabeBestaetigt");
        hatSchalterGanzzahl = new Schalter(180, 350, 140, 20, "ganze Zahlen");
        hatSchalterGanzzahl.setzeBearbeiterGeklickt("hatSchalterGanzzahlGeklickt");
        hatMenueDatei = new Menue("Datei");
        hatMenueDatei.haengeZeileAn("Neu", "hatMenueDateiNeu");
        hatMenueDatei.haengeTrennungAn();
        hatMenueDatei.haengeZeileAn("Beenden", "hatMenueDateiBeenden");
        hatMenueAnsicht = new Menue("Ansicht");
        hatMenueTemp = hatMenueAnsicht.neuesUntermenue("Zahlensystem");
        hatMenueTemp.haengeZeileAn("Dezimal", "hatMenueAnsichtDezimal");
        hatMenueTemp.haengeZeileAn("Dual", "hatMenueAnsichtDual");
        hatMenueTemp.haengeTrennungAn();
        hatMenueTemp.haengeZeileAn("Hexadezimal", "hatMenueAnsichtHexadezimal");
        hatMenueAnsicht.haengeZeileAn("Große Ziffern", "hatMenueAnsichtGrosseZiffern");
        hatMenueHilfe = new Menue("Hilfe");
        hatMenueHilfe.haengeZeileAn("Über den Rechner ...", "hatMenueHilfeUeberdenRechner");
    }

    public void hatKnopf7Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopf8Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopf9Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfGeteiltGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopf4Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopf5Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopf6Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfMalGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopf1Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopf2Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopf3Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfMinusGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopf0Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfKommaGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfGleichGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfPlusGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfLoeschenGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfLoeschenFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfLoeschenFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAnzeigeInhaltGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAnzeigeEingabeBestaetigt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatSchalterGanzzahlGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatMenueDateiNeu()
    {

    }

    public void hatMenueDateiBeenden()
    {

    }

    public void hatMenueAnsichtDezimal()
    {

    }

    public void hatMenueAnsichtDual()
    {

    }

    public void hatMenueAnsichtHexadezimal()
    {

    }

    public void hatMenueAnsichtGrosseZiffern()
    {

    }

    public void hatMenueHilfeUeberdenRechner()
    {

    }

}