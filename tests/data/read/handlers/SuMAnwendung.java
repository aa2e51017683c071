import sum.ereignis.*;

class MeinKnopf extends Knopf
{
    public MeinKnopf(int x) { super(x, 10, 20, 20, "mein"); }
}

class Helfer
{
    Knopf hatFremd = new Knopf(1, 2, 3, 4, "fremd");
}

public class SuMAnwendung extends EBAnwendung
{
    Knopf start, stopp, neu;
    MeinKnopf eigener;
    Textfeld eingabe;
    Radiogruppe farbe;
    Radioknopf rot, blau, einzeln;
    Etikett ausgabe;

    SuMAnwendung()
    {
        super(500, 400);
        this.baueKnoepfe();
        bereiteVor("x");
        start.setzeBearbeiterFokusErhalten("startFokusErhalten");
        rot = new Radioknopf(100, 100, 80, 20, "rot", "rotGeklickt");
        blau = new Radioknopf(100, 130, 90, 20, "blau");
        einzeln = new Radioknopf(100, 160, 90, 20, "allein");
        farbe = new Radiogruppe();
        farbe.fuegeEin(rot);
        farbe.fuegeEin(this.blau);
        farbe.fuegeEin(new Radioknopf(90, 190, 50, 20, "direkt"));
        farbe.fuegeEin(gruen);
        farbe.fuegeEin(rot);
        rot.waehle();
        ausgabe.setzeHintergrundfarbe(Farbe.ROT);
        eingabe = new Textfeld(10, 10, 100, 20, "hier", "eingabeGeklickt");
        eingabe.setzeBearbeiterEingabeBestaetigt("fertig");
        eingabe.setzeBearbeiterInhaltGeaendert(name);
        eingabe.setzeBearbeiterGeklickt("eingabeGeklickt");
    }

    private void baueKnoepfe() throws RuntimeException
    {
        start = new Knopf(10, 40, 80, 25, "Start", "startGeklickt");
        stopp = new Knopf(100, 40, 80, 25, "Stopp", "beenden");
        eigener = new MeinKnopf(30);
        eigener.setzeInhalt("x");
    }

    void bereiteVor(String wert) {
        ausgabe = new Etikett(10, 70, 100, 20, "alt");
        if (wert.equals("x")) { ausgabe.setzeInhalt("bereit"); }
    }

    public void startGeklickt()
    {
        ausgabe.setzeInhalt("läuft");
        ausgabe.setzeSchriftgroesse(30);
        neu = new Knopf(10, 300, 80, 25, "Neu");
        neu.setzeBearbeiterGeklickt("neuGeklickt"); neu.setzeInhalt("Ganz neu");
        start.gibFrei();
    }
}
