public class SuMAnwendung extends EBAnwendung
{
    public SuMAnwendung()
    {
        super(640);
        hatA = new Knopf(10, 10, 80, 25, "Größe);
        hatB = new Knopf(10, 40, 80, 25, "B";
        hatC = new Knopf(10, 70, 80, 25, "C");
        if (x) {
            hatC.setzeBearbeiterGeklickt("hatCGeklickt");

    public void hatCGeklickt()
    {
        hatC.setzeInhalt("spaeter");
    }}}}
    public void mehr() { hatD = new Knopf(10, 100, 80, 25, "Ä €"); }
    int class = 5; Knopf int = new Knopf(1, 1, 1, 1, "")
    /* kein Ende
    hatE = new Knopf(1, 2, 3, 4, "E");
