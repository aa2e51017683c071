import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Menue hatMenueTemp;
    Menue hatMenueA;
    Menue hatMenueB;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(320, 240);
        hatMenueA = new Menue("A");
        hatMenueTemp = hatMenueA.neuesUntermenue("Unter");
        hatMenueTemp = .neuesUntermenue("Tiefer");
        hatMenueTemp.haengeZeileAn("Ganz unten", "Ganzunten");
        hatMenueTemp.haengeTrennungAn();
        hatMenueA.haengeZeileAn("Eintrag", "hatMenueAEintrag");
        hatMenueB = new Menue("B");
    }

    public void Ganzunten()
    {

    }

    public void hatMenueAEintrag()
    {

    }

}