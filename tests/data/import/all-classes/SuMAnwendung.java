import sum.komponenten.*;
public class SuMAnwendung extends EBAnwendung
{
    public SuMAnwendung()
    {
        super(800, 600);
	hatE1 = new Etikett(1, 2, 3, 4, "Hallo");
        hatE1.setzeAusrichtung(Ausrichtung.MITTE);
        hatE1.setzeSchriftgroesse(20);
        hatE2 = new Etikett(5,6,7,8,"Kein ""Komma");
        hatE2.setzeAusrichtung(2);
        hatE3 = new Etikett(0, 0, 0, 0, "");
        hatKnopf1 = new Knopf(10, 20, 30, 40, "Knopf, der abgeschnitten wird");
        hatKnopf1.setzeBearbeiterGeklickt("hatKnopf1Geklickt");
        hatT = new Textfeld(1, 1, 1, 1, "Text");
        hatZei = new Zeichenbereich(1, 2, 3, 4, "Z");
        hatZeil = new Zeilenbereich(1, 2, 3, 4, "Z2");
        hatP = new Kennwortfeld(9, 8, 7, 6, '#');
        hatS = new Schalter(1, 1, 1, 1, "an");
        hatS.schalteAn();
        hatG = new Radiogruppe();
        hatR1 = new Radioknopf(50, 60, 150, 20, "Eins");
        hatG.fuegeEin(hatR1);
        hatR2 = new Radioknopf(50, 110, 100, 20, "Zwei");
        hatG.fuegeEin(hatR2);
        hatG.fuegeEin(hatUnbekannt);
        hatLeer = new Radiogruppe();
        hatA = new Auswahl(1, 2, 3, 4);
        hatReg = new Regler(1, 2, 3, 4, 5, 6, 7);
        hatTab = new Tabelle(1, 2, 3, 4, 5, 3);
        hatTab.setzeSpaltentitelAn("Name", 1);
        hatB = new Bild(1, 2, 3, 4, "C:\\x\\y.bmp");
        hatTon = new Ton();
        hatTon.ladeTon("C:\\t.wav");
        hatF = new Film("a\\b.mov");
    }
    public boolean VerbindeMitDatenbank()
    {
        lFehler = hatDatenbank.verbindeMySQL("schule", "local host", "schueler", "geheim");
    }
}