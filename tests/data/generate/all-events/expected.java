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
        hatKnopf1.setzeBearbeiterGeklickt("hatKnopf1Geklickt");
        hatKnopf1.setzeBearbeiterFokusErhalten("hatKnopf1FokusErhalten");
        hatKnopf1.setzeBearbeiterFokusVerloren("hatKnopf1FokusVerloren");
        hatTextfeld1 = new Textfeld(10, 20, 30, 40, "t");
        hatTextfeld1.setzeBearbeiterInhaltGeaendert("hatTextfeld1InhaltGeaendert");
        hatTextfeld1.setzeBearbeiterEingabeBestaetigt("hatTextfeld1EingabeBestaetigt");
        hatTextfeld1.setzeBearbeiterFokusErhalten("hatTextfeld1FokusErhalten");
        hatTextfeld1.setzeBearbeiterFokusVerloren("hatTextfeld1FokusVerloren");
        hatZeichenbereich1 = new Zeichenbereich(10, 20, 30, 40, "a");
        hatZeichenbereich1.setzeBearbeiterInhaltGeaendert("hatZeichenbereich1InhaltGeaendert");
        hatZeichenbereich1.setzeBearbeiterMarkierungGeaendert("hatZeichenbereich1MarkierungGeaendert");
        hatZeichenbereich1.setzeBearbeiterFokusErhalten("hatZeichenbereich1FokusErhalten");
        hatZeichenbereich1.setzeBearbeiterFokusVerloren("hatZeichenbereich1FokusVerloren");
        hatZeilenbereich1 = new Zeilenbereich(10, 20, 30, 40, "b");
        hatZeilenbereich1.setzeBearbeiterInhaltGeaendert("hatZeilenbereich1InhaltGeaendert");
        hatZeilenbereich1.setzeBearbeiterMarkierungGeaendert("hatZeilenbereich1MarkierungGeaendert");
        hatZeilenbereich1.setzeBearbeiterFokusErhalten("hatZeilenbereich1FokusErhalten");
        hatZeilenbereich1.setzeBearbeiterFokusVerloren("hatZeilenbereich1FokusVerloren");
        hatPasswortfeld1 = new Kennwortfeld(10, 20, 30, 40, '#');
        hatPasswortfeld1.setzeBearbeiterInhaltGeaendert("hatPasswortfeld1InhaltGeaendert");
        hatPasswortfeld1.setzeBearbeiterEingabeBestaetigt("hatPasswortfeld1EingabeBestaetigt");
        hatPasswortfeld1.setzeBearbeiterFokusErhalten("hatPasswortfeld1FokusErhalten");
        hatPasswortfeld1.setzeBearbeiterFokusVerloren("hatPasswortfeld1FokusVerloren");
        hatSchalter1 = new Schalter(10, 20, 30, 40, "s");
        hatSchalter1.setzeBearbeiterGeklickt("hatSchalter1Geklickt");
        hatSchalter1.setzeBearbeiterFokusErhalten("hatSchalter1FokusErhalten");
        hatSchalter1.setzeBearbeiterFokusVerloren("hatSchalter1FokusVerloren");
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
        hatAuswahl1.setzeBearbeiterGeaendert("hatAuswahl1Geaendert");
        hatAuswahl1.setzeBearbeiterFokusErhalten("hatAuswahl1FokusErhalten");
        hatAuswahl1.setzeBearbeiterFokusVerloren("hatAuswahl1FokusVerloren");
        hatAuswahl2 = new Auswahl(10, 20, 30, 40);
        hatAuswahl2.setzeBearbeiterGeaendert("hatAuswahl2Geaendert");
        hatAuswahl2.setzeBearbeiterFokusErhalten("hatAuswahl2FokusErhalten");
        hatAuswahl2.setzeBearbeiterFokusVerloren("hatAuswahl2FokusVerloren");
        hatRegler1 = new Regler(10, 20, 30, 40, 5, -10, 10);
        hatRegler1.setzeBearbeiterGeaendert("hatRegler1Geaendert");
        hatRegler1.setzeBearbeiterFokusErhalten("hatRegler1FokusErhalten");
        hatRegler1.setzeBearbeiterFokusVerloren("hatRegler1FokusVerloren");
        hatFortschrittsbalken1 = new Fortschrittsbalken(10, 20, 30, 40, -1, 7);
        hatFortschrittsbalken1.setzeWert(0);
        hatTabelle1 = new Tabelle(10, 20, 30, 40, 0, 2);
        hatTabelle1.setzeSpaltentitelAn("A", 1);
        hatTabelle1.setzeSpaltentitelAn("B", 2);
        hatTabelle1.setzeBearbeiterInhaltGeaendert("hatTabelle1InhaltGeaendert");
        hatTabelle1.setzeBearbeiterMarkierungGeaendert("hatTabelle1MarkierungGeaendert");
        hatTabelle1.setzeBearbeiterFokusErhalten("hatTabelle1FokusErhalten");
        hatTabelle1.setzeBearbeiterFokusVerloren("hatTabelle1FokusVerloren");
        hatTabelle2 = new Tabelle(10, 20, 30, 40, 9, 0);
        hatTabelle2.setzeBearbeiterInhaltGeaendert("hatTabelle2InhaltGeaendert");
        hatTabelle2.setzeBearbeiterMarkierungGeaendert("hatTabelle2MarkierungGeaendert");
        hatTabelle2.setzeBearbeiterFokusErhalten("hatTabelle2FokusErhalten");
        hatTabelle2.setzeBearbeiterFokusVerloren("hatTabelle2FokusVerloren");
        hatBild1 = new Bild(10, 20, 30, 40, "C:\\a\\b.bmp");
        hatTon1 = new Ton();
        hatTon1.ladeTon("\\\\server\\x.wav");
        //hatTon1.spieleTon();  // <- zum sofortigen Abspielen dekommentieren

        hatFilm1 = new Film("");
    }

    public void hatKnopf1Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopf1FokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopf1FokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeld1InhaltGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeld1EingabeBestaetigt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeld1FokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTextfeld1FokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatZeichenbereich1InhaltGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatZeichenbereich1MarkierungGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatZeichenbereich1FokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatZeichenbereich1FokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatZeilenbereich1InhaltGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatZeilenbereich1MarkierungGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatZeilenbereich1FokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatZeilenbereich1FokusVerloren()
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

    public void hatSchalter1Geklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatSchalter1FokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatSchalter1FokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatBGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAuswahl1Geaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAuswahl1FokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAuswahl1FokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAuswahl2Geaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAuswahl2FokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAuswahl2FokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatRegler1Geaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatRegler1FokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatRegler1FokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTabelle1InhaltGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTabelle1MarkierungGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTabelle1FokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTabelle1FokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTabelle2InhaltGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTabelle2MarkierungGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTabelle2FokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatTabelle2FokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

}