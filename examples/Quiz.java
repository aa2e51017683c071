import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Etikett hatFrage;
    Etikett hatEtikettSchwierigkeit;
    Etikett hatEtikettStand;
    Etikett hatEtikettErklaerung;
    Knopf hatKnopfAntworten;
    Knopf hatKnopfNaechste;
    Zeichenbereich hatErklaerung;
    Zeilenbereich hatVerlauf;
    Schalter hatSchalterTon;
    Schalter hatSchalterZeit;
    Radiogruppe hatAntworten;
    Radioknopf hatAntwortA;
    Radioknopf hatAntwortB;
    Radioknopf hatAntwortC;
    Radioknopf hatAntwortD;
    Radiogruppe hatSchwierigkeit;
    Radioknopf hatLeicht;
    Radioknopf hatMittel;
    Radioknopf hatSchwer;
    Auswahl hatAuswahlThema;
    Fortschrittsbalken hatPunkte;
    Menue hatMenueTemp;
    Menue hatMenueSpiel;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(800, 600);
        hatFrage = new Etikett(20, 20, 760, 40, "Welcher Planet ist der größte in unserem Sonnensystem?");
        hatFrage.setzeAusrichtung(1);
        hatFrage.setzeSchriftgroesse(24);
        hatEtikettSchwierigkeit = new Etikett(300, 80, 200, 25, "Schwierigkeit");
        hatEtikettStand = new Etikett(40, 290, 200, 25, "Punktestand:");
        hatEtikettErklaerung = new Etikett(40, 330, 300, 25, "Erklärung zur letzten Frage:");
        hatKnopfAntworten = new Knopf(40, 230, 160, 35, "Antworten");
        hatKnopfAntworten.setzeBearbeiterGeklickt("hatKnopfAntwortenGeklickt");
        hatKnopfNaechste = new Knopf(220, 230, 160, 35, "Nächste Frage");
        hatKnopfNaechste.setzeBearbeiterGeklickt("hatKnopfNaechsteGeklickt");
        hatErklaerung = new Zeichenbereich(40, 360, 740, 90, "Jupiter ist größer als alle anderen Planeten zusammen.");
        hatErklaerung.setzeBearbeiterInhaltGeaendert("hatErklaerungInhaltGeaendert");
        hatErklaerung.setzeBearbeiterMarkierungGeaendert("hatErklaerungMarkierungGeaendert");
        hatErklaerung.setzeBearbeiterFokusErhalten("hatErklaerungFokusErhalten");
        hatErklaerung.setzeBearbeiterFokusVerloren("hatErklaerungFokusVerloren");
        hatVerlauf = new Zeilenbereich(40, 470, 740, 100, "");
        hatVerlauf.setzeBearbeiterInhaltGeaendert("hatVerlaufInhaltGeaendert");
        hatVerlauf.setzeBearbeiterMarkierungGeaendert("hatVerlaufMarkierungGeaendert");
        hatVerlauf.setzeBearbeiterFokusErhalten("hatVerlaufFokusErhalten");
        hatVerlauf.setzeBearbeiterFokusVerloren("hatVerlaufFokusVerloren");
        hatSchalterTon = new Schalter(500, 80, 280, 20, "Ton bei richtiger Antwort");
        hatSchalterTon.setzeBearbeiterGeklickt("hatSchalterTonGeklickt");
        hatSchalterTon.setzeBearbeiterFokusErhalten("hatSchalterTonFokusErhalten");
        hatSchalterTon.setzeBearbeiterFokusVerloren("hatSchalterTonFokusVerloren");
        hatSchalterZeit = new Schalter(500, 110, 280, 20, "Zeit begrenzen");
        hatSchalterZeit.setzeBearbeiterGeklickt("hatSchalterZeitGeklickt");
        hatAntworten = new Radiogruppe();
        hatAntwortA = new Radioknopf(40, 80, 200, 20, "Saturn");
        hatAntwortA.setzeBearbeiterGeklickt("hatAntwortAGeklickt");
        hatAntworten.fuegeEin(hatAntwortA);
        hatAntwortB = new Radioknopf(40, 110, 200, 20, "Jupiter");
        hatAntwortB.setzeBearbeiterGeklickt("hatAntwortBGeklickt");
        hatAntworten.fuegeEin(hatAntwortB);
        hatAntwortC = new Radioknopf(40, 140, 200, 20, "Neptun");
        hatAntwortC.setzeBearbeiterGeklickt("hatAntwortCGeklickt");
        hatAntworten.fuegeEin(hatAntwortC);
        hatAntwortD = new Radioknopf(40, 170, 200, 20, "Erde");
        hatAntwortD.setzeBearbeiterGeklickt("hatAntwortDGeklickt");
        hatAntworten.fuegeEin(hatAntwortD);
        hatSchwierigkeit = new Radiogruppe();
        hatLeicht = new Radioknopf(300, 110, 150, 20, "leicht");
        hatLeicht.setzeBearbeiterGeklickt("hatLeichtGeklickt");
        hatSchwierigkeit.fuegeEin(hatLeicht);
        hatMittel = new Radioknopf(300, 140, 150, 20, "mittel");
        hatMittel.setzeBearbeiterGeklickt("hatMittelGeklickt");
        hatSchwierigkeit.fuegeEin(hatMittel);
        hatSchwer = new Radioknopf(300, 170, 150, 20, "schwer");
        hatSchwer.setzeBearbeiterGeklickt("hatSchwerGeklickt");
        hatSchwierigkeit.fuegeEin(hatSchwer);
        hatAuswahlThema = new Auswahl(500, 150, 280, 25);
        hatAuswahlThema.haengeAn("Erdkunde");
        hatAuswahlThema.haengeAn("Geschichte");
        hatAuswahlThema.haengeAn("Naturwissenschaften");
        hatAuswahlThema.haengeAn("Sport");
        hatAuswahlThema.setzeBearbeiterGeaendert("hatAuswahlThemaGeaendert");
        hatAuswahlThema.setzeBearbeiterFokusErhalten("hatAuswahlThemaFokusErhalten");
        hatAuswahlThema.setzeBearbeiterFokusVerloren("hatAuswahlThemaFokusVerloren");
        hatPunkte = new Fortschrittsbalken(250, 290, 530, 25, 0, 20);
        hatPunkte.setzeWert(0);
        hatMenueSpiel = new Menue("Spiel");
        hatMenueSpiel.haengeZeileAn("Neues Spiel", "hatMenueSpielNeuesSpiel");
        hatMenueTemp = hatMenueSpiel.neuesUntermenue("Fragenkatalog");
        hatMenueTemp.haengeZeileAn("Laden ...", "hatMenueSpielLaden");
        hatMenueTemp.haengeZeileAn("Speichern ...", "hatMenueSpielSpeichern");
        hatMenueSpiel.haengeTrennungAn();
        hatMenueSpiel.haengeZeileAn("Bestenliste", "hatMenueSpielBestenliste");
        hatMenueSpiel.haengeTrennungAn();
        hatMenueSpiel.haengeZeileAn("Beenden", "hatMenueSpielBeenden");
    }

    public void hatKnopfAntwortenGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfNaechsteGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatErklaerungInhaltGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatErklaerungMarkierungGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatErklaerungFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatErklaerungFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatVerlaufInhaltGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatVerlaufMarkierungGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatVerlaufFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatVerlaufFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatSchalterTonGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatSchalterTonFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatSchalterTonFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatSchalterZeitGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAntwortAGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAntwortBGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAntwortCGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAntwortDGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatLeichtGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatMittelGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatSchwerGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAuswahlThemaGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAuswahlThemaFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAuswahlThemaFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatMenueSpielNeuesSpiel()
    {

    }

    public void hatMenueSpielLaden()
    {

    }

    public void hatMenueSpielSpeichern()
    {

    }

    public void hatMenueSpielBestenliste()
    {

    }

    public void hatMenueSpielBeenden()
    {

    }

}