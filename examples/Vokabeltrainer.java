import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Etikett hatTitel;
    Etikett hatEtikettVokabel;
    Etikett hatEtikettAntwort;
    Knopf hatKnopfPruefen;
    Knopf hatKnopfWeiter;
    Textfeld hatTextfeldVokabel;
    Textfeld hatTextfeldAntwort;
    Zeichenbereich hatNotizen;
    Schalter hatSchalterGross;
    Schalter hatSchalterMischen;
    Radiogruppe hatRichtung;
    Radioknopf hatRichtungED;
    Radioknopf hatRichtungDE;
    Auswahl hatAuswahlLektion;
    Regler hatReglerTempo;
    Fortschrittsbalken hatFortschritt;
    Tabelle hatTabelleVokabeln;
    Menue hatMenueTemp;
    Menue hatMenueLektion;
    Menue hatMenueExtras;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(640, 480);
        hatTitel = new Etikett(20, 20, 600, 30, "Vokabeltrainer Englisch – Deutsch");
        hatTitel.setzeAusrichtung(1);
        hatTitel.setzeSchriftgroesse(20);
        hatEtikettVokabel = new Etikett(20, 100, 80, 25, "Vokabel:");
        hatEtikettVokabel.setzeAusrichtung(2);
        hatEtikettAntwort = new Etikett(330, 100, 80, 25, "Antwort:");
        hatEtikettAntwort.setzeAusrichtung(2);
        hatKnopfPruefen = new Knopf(420, 140, 200, 30, "Prüfen");
        hatKnopfPruefen.setzeBearbeiterGeklickt("hatKnopfPruefenGeklickt");
        hatKnopfWeiter = new Knopf(420, 180, 200, 30, "Weiter >>");
        hatKnopfWeiter.setzeBearbeiterGeklickt("hatKnopfWeiterGeklickt");
        hatTextfeldVokabel = new Textfeld(110, 100, 200, 25, "to explore");
        hatTextfeldAntwort = new Textfeld(420, 100, 200, 25, "");
        hatTextfeldAntwort.setzeBearbeiterEingabeBestaetigt("hatTextfeldAntwortEingabeBestaetigt");
        hatTextfeldAntwort.setzeBearbeiterFokusErhalten("hatTextfeldAntwortFokusErhalten");
        hatTextfeldAntwort.setzeBearbeiterFokusVerloren("hatTextfeldAntwortFokusVerloren");
        hatNotizen = new Zeichenbereich(440, 260, 180, 200, "Notizen");
        hatNotizen.setzeBearbeiterFokusVerloren("hatNotizenFokusVerloren");
        hatSchalterGross = new Schalter(20, 140, 200, 20, "Groß/klein beachten");
        hatSchalterGross.setzeBearbeiterGeklickt("hatSchalterGrossGeklickt");
        hatSchalterMischen = new Schalter(20, 170, 200, 20, "Mischen");
        hatSchalterMischen.setzeBearbeiterGeklickt("hatSchalterMischenGeklickt");
        hatSchalterMischen.setzeBearbeiterFokusVerloren("hatSchalterMischenFokusVerloren");
        hatRichtung = new Radiogruppe();
        hatRichtungED = new Radioknopf(240, 60, 180, 20, "Englisch -> Deutsch");
        hatRichtungED.setzeBearbeiterGeklickt("hatRichtungEDGeklickt");
        hatRichtung.fuegeEin(hatRichtungED);
        hatRichtungDE = new Radioknopf(430, 60, 180, 20, "Deutsch -> Englisch");
        hatRichtungDE.setzeBearbeiterGeklickt("hatRichtungDEGeklickt");
        hatRichtung.fuegeEin(hatRichtungDE);
        hatAuswahlLektion = new Auswahl(20, 60, 200, 25);
        hatAuswahlLektion.haengeAn("Lektion 1");
        hatAuswahlLektion.haengeAn("Lektion 2");
        hatAuswahlLektion.haengeAn("Lektion 3: «Reisen»");
        hatAuswahlLektion.setzeBearbeiterGeaendert("hatAuswahlLektionGeaendert");
        hatAuswahlLektion.setzeBearbeiterFokusErhalten("hatAuswahlLektionFokusErhalten");
        hatAuswahlLektion.setzeBearbeiterFokusVerloren("hatAuswahlLektionFokusVerloren");
        hatReglerTempo = new Regler(240, 140, 160, 40, 3, 1, 5);
        hatReglerTempo.setzeBearbeiterGeaendert("hatReglerTempoGeaendert");
        hatFortschritt = new Fortschrittsbalken(20, 220, 600, 20, 0, 50);
        hatFortschritt.setzeWert(0);
        hatTabelleVokabeln = new Tabelle(20, 260, 400, 200, 30, 3);
        hatTabelleVokabeln.setzeSpaltentitelAn("Englisch", 1);
        hatTabelleVokabeln.setzeSpaltentitelAn("Deutsch", 2);
        hatTabelleVokabeln.setzeSpaltentitelAn("Richtig", 3);
        hatTabelleVokabeln.setzeBearbeiterInhaltGeaendert("hatTabelleVokabelnInhaltGeaendert");
        hatTabelleVokabeln.setzeBearbeiterMarkierungGeaendert("hatTabelleVokabelnMarkierungGeaendert");
        hatMenueLektion = new Menue("Lektion");
        hatMenueLektion.haengeZeileAn("Neu", "hatMenueLektionNeu");
        hatMenueLektion.haengeZeileAn("Öffnen ...", "hatMenueLektionOeffnen");
        hatMenueLektion.haengeZeileAn("Speichern", "hatMenueLektionSpeichern");
        hatMenueLektion.haengeTrennungAn();
        hatMenueLektion.haengeZeileAn("Drucken", "hatMenueLektionDrucken");
        hatMenueLektion.haengeTrennungAn();
        hatMenueLektion.haengeZeileAn("Beenden", "hatMenueLektionBeenden");
        hatMenueExtras = new Menue("Extras");
        hatMenueTemp = hatMenueExtras.neuesUntermenue("Schwierigkeit");
        hatMenueTemp.haengeZeileAn("Anfänger", "hatMenueExtrasAnfaenger");
        hatMenueTemp.haengeZeileAn("Fortgeschrittene", "hatMenueExtrasFortgeschrittene");
        hatMenueExtras.haengeTrennungAn();
        hatMenueExtras.haengeZeileAn("Statistik", "hatMenueExtrasStatistik");
    }

    public void hatKnopfPruefenGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfWeiterGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldAntwortEingabeBestaetigt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldAntwortFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldAntwortFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatNotizenFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatSchalterGrossGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatSchalterMischenGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatSchalterMischenFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatRichtungEDGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatRichtungDEGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAuswahlLektionGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAuswahlLektionFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAuswahlLektionFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatReglerTempoGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTabelleVokabelnInhaltGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTabelleVokabelnMarkierungGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatMenueLektionNeu()
    {

    }

    public void hatMenueLektionOeffnen()
    {

    }

    public void hatMenueLektionSpeichern()
    {

    }

    public void hatMenueLektionDrucken()
    {

    }

    public void hatMenueLektionBeenden()
    {

    }

    public void hatMenueExtrasAnfaenger()
    {

    }

    public void hatMenueExtrasFortgeschrittene()
    {

    }

    public void hatMenueExtrasStatistik()
    {

    }

}