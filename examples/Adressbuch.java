import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
import sum.sql.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Etikett hatTitel;
    Etikett hatEtikettName;
    Etikett hatEtikettVorname;
    Etikett hatEtikettStrasse;
    Etikett hatEtikettOrt;
    Etikett hatEtikettKennwort;
    Etikett hatStatus;
    Knopf hatKnopfAnmelden;
    Knopf hatKnopfSpeichern;
    Knopf hatKnopfLoeschen;
    Textfeld hatTextfeldName;
    Textfeld hatTextfeldVorname;
    Textfeld hatTextfeldStrasse;
    Textfeld hatTextfeldOrt;
    Kennwortfeld hatPasswortfeld1;
    Tabelle hatTabelleAdressen;
    Menue hatMenueTemp;
    Menue hatMenueAdressen;
    Menue hatMenueDatenbank;
    Datenbank hatDatenbank;
    SQLErgebnisliste hatErgebnisliste;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(640, 480);
        hatTitel = new Etikett(20, 20, 300, 30, "Unser Adressbuch");
        hatTitel.setzeSchriftgroesse(20);
        hatEtikettName = new Etikett(20, 60, 110, 25, "Name:");
        hatEtikettName.setzeAusrichtung(2);
        hatEtikettVorname = new Etikett(20, 90, 110, 25, "Vorname:");
        hatEtikettVorname.setzeAusrichtung(2);
        hatEtikettStrasse = new Etikett(20, 120, 110, 25, "Straße:");
        hatEtikettStrasse.setzeAusrichtung(2);
        hatEtikettOrt = new Etikett(20, 150, 110, 25, "PLZ und Ort:");
        hatEtikettOrt.setzeAusrichtung(2);
        hatEtikettKennwort = new Etikett(360, 60, 100, 25, "Kennwort:");
        hatEtikettKennwort.setzeAusrichtung(2);
        hatStatus = new Etikett(20, 430, 600, 25, "Nicht verbunden");
        hatStatus.setzeSchriftgroesse(10);
        hatKnopfAnmelden = new Knopf(470, 100, 150, 30, "Anmelden");
        hatKnopfAnmelden.setzeBearbeiterGeklickt("hatKnopfAnmeldenGeklickt");
        hatKnopfSpeichern = new Knopf(360, 150, 120, 30, "Speichern");
        hatKnopfSpeichern.setzeBearbeiterGeklickt("hatKnopfSpeichernGeklickt");
        hatKnopfSpeichern.setzeBearbeiterFokusErhalten("hatKnopfSpeichernFokusErhalten");
        hatKnopfLoeschen = new Knopf(500, 150, 120, 30, "Löschen");
        hatKnopfLoeschen.setzeBearbeiterGeklickt("hatKnopfLoeschenGeklickt");
        hatKnopfLoeschen.setzeBearbeiterFokusVerloren("hatKnopfLoeschenFokusVerloren");
        hatTextfeldName = new Textfeld(140, 60, 200, 25, "");
        hatTextfeldName.setzeBearbeiterInhaltGeaendert("hatTextfeldNameInhaltGeaendert");
        hatTextfeldName.setzeBearbeiterEingabeBestaetigt("hatTextfeldNameEingabeBestaetigt");
        hatTextfeldName.setzeBearbeiterFokusErhalten("hatTextfeldNameFokusErhalten");
        hatTextfeldName.setzeBearbeiterFokusVerloren("hatTextfeldNameFokusVerloren");
        hatTextfeldVorname = new Textfeld(140, 90, 200, 25, "");
        hatTextfeldVorname.setzeBearbeiterEingabeBestaetigt("hatTextfeldVornameEingabeBestaetigt");
        hatTextfeldVorname.setzeBearbeiterFokusErhalten("hatTextfeldVornameFokusErhalten");
        hatTextfeldVorname.setzeBearbeiterFokusVerloren("hatTextfeldVornameFokusVerloren");
        hatTextfeldStrasse = new Textfeld(140, 120, 200, 25, "");
        hatTextfeldStrasse.setzeBearbeiterEingabeBestaetigt("hatTextfeldStrasseEingabeBestaetigt");
        hatTextfeldStrasse.setzeBearbeiterFokusErhalten("hatTextfeldStrasseFokusErhalten");
        hatTextfeldStrasse.setzeBearbeiterFokusVerloren("hatTextfeldStrasseFokusVerloren");
        hatTextfeldOrt = new Textfeld(140, 150, 200, 25, "");
        hatTextfeldOrt.setzeBearbeiterEingabeBestaetigt("hatTextfeldOrtEingabeBestaetigt");
        hatTextfeldOrt.setzeBearbeiterFokusErhalten("hatTextfeldOrtFokusErhalten");
        hatTextfeldOrt.setzeBearbeiterFokusVerloren("hatTextfeldOrtFokusVerloren");
        hatPasswortfeld1 = new Kennwortfeld(470, 60, 150, 25, '*');
        hatPasswortfeld1.setzeBearbeiterInhaltGeaendert("hatPasswortfeld1InhaltGeaendert");
        hatPasswortfeld1.setzeBearbeiterEingabeBestaetigt("hatPasswortfeld1EingabeBestaetigt");
        hatPasswortfeld1.setzeBearbeiterFokusErhalten("hatPasswortfeld1FokusErhalten");
        hatPasswortfeld1.setzeBearbeiterFokusVerloren("hatPasswortfeld1FokusVerloren");
        hatTabelleAdressen = new Tabelle(20, 200, 600, 220, 20, 5);
        hatTabelleAdressen.setzeSpaltentitelAn("Name", 1);
        hatTabelleAdressen.setzeSpaltentitelAn("Vorname", 2);
        hatTabelleAdressen.setzeSpaltentitelAn("Straße", 3);
        hatTabelleAdressen.setzeSpaltentitelAn("PLZ", 4);
        hatTabelleAdressen.setzeSpaltentitelAn("Ort", 5);
        hatTabelleAdressen.setzeBearbeiterInhaltGeaendert("hatTabelleAdressenInhaltGeaendert");
        hatTabelleAdressen.setzeBearbeiterMarkierungGeaendert("hatTabelleAdressenMarkierungGeaendert");
        hatTabelleAdressen.setzeBearbeiterFokusErhalten("hatTabelleAdressenFokusErhalten");
        hatTabelleAdressen.setzeBearbeiterFokusVerloren("hatTabelleAdressenFokusVerloren");
        hatMenueAdressen = new Menue("Adressen");
        hatMenueAdressen.haengeZeileAn("Neue Adresse", "hatMenueAdressenNeueAdresse");
        hatMenueAdressen.haengeZeileAn("Adresse ändern ...", "hatMenueAdressenAdresseaendern");
        hatMenueAdressen.haengeTrennungAn();
        hatMenueTemp = hatMenueAdressen.neuesUntermenue("Sortieren nach");
        hatMenueTemp.haengeZeileAn("Name", "hatMenueAdressenName");
        hatMenueTemp.haengeZeileAn("Ort", "hatMenueAdressenOrt");
        hatMenueTemp.haengeTrennungAn();
        hatMenueTemp.haengeZeileAn("Straße", "hatMenueAdressenStrasse");
        hatMenueAdressen.haengeTrennungAn();
        hatMenueAdressen.haengeZeileAn("Beenden", "hatMenueAdressenBeenden");
        hatMenueDatenbank = new Menue("Datenbank");
        hatMenueDatenbank.haengeZeileAn("Verbinden", "hatMenueDatenbankVerbinden");
        hatMenueDatenbank.haengeZeileAn("Trennen", "hatMenueDatenbankTrennen");
        hatDatenbank = new Datenbank();
        hatErgebnisliste = null;

        if (VerbindeMitDatenbank())
        {
            hatDatenbank.sendeSQL("SELECT * FROM adressen");
            hatErgebnisliste = hatDatenbank.ergebnis();
        }
    }

    public void hatKnopfAnmeldenGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfSpeichernGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfSpeichernFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfLoeschenGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfLoeschenFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldNameInhaltGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldNameEingabeBestaetigt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldNameFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldNameFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldVornameEingabeBestaetigt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldVornameFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldVornameFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldStrasseEingabeBestaetigt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldStrasseFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldStrasseFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldOrtEingabeBestaetigt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldOrtFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeldOrtFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatPasswortfeld1InhaltGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatPasswortfeld1EingabeBestaetigt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatPasswortfeld1FokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatPasswortfeld1FokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTabelleAdressenInhaltGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTabelleAdressenMarkierungGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTabelleAdressenFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTabelleAdressenFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatMenueAdressenNeueAdresse()
    {

    }

    public void hatMenueAdressenAdresseaendern()
    {

    }

    public void hatMenueAdressenName()
    {

    }

    public void hatMenueAdressenOrt()
    {

    }

    public void hatMenueAdressenStrasse()
    {

    }

    public void hatMenueAdressenBeenden()
    {

    }

    public void hatMenueDatenbankVerbinden()
    {

    }

    public void hatMenueDatenbankTrennen()
    {

    }

    public boolean VerbindeMitDatenbank()
    {
        String lFehler;
        lFehler = hatDatenbank.verbindeMySQL("schule", "localhost", "schueler", "geheim");
        if(lFehler != "")
            System.out.println(lFehler);
        return lFehler == "";
    }

    public int AnzahlDerTabellen()
    {
        return hatDatenbank.tabellenAnzahl();
    }

    public String NameDerTabelle(int pIndex)
    {
        return hatDatenbank.tabellenName(pIndex);
    }

    public int AnzahlDerEintraege()
    {
        return hatErgebnisliste.zeilenAnzahl();
    }

}