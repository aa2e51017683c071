import sum.ereignis.*;
import sum.komponenten.*;
import sum.multimedia.*;
//import sum.werkzeuge.*;

public class SuMAnwendung extends EBAnwendung
{
    // Objekte
    Etikett hatTitel;
    Etikett hatEtikettLaut;
    Knopf hatKnopfStart;
    Knopf hatKnopfPause;
    Knopf hatKnopfStop;
    Zeilenbereich hatListe;
    Schalter hatSchalterWiederholen;
    Auswahl hatAuswahlTitel;
    Regler hatReglerLautstaerke;
    Regler hatReglerBalance;
    Fortschrittsbalken hatFortschritt;
    Bild hatBildCover;
    Ton hatTonLied;
    Ton hatTonKlick;
    Film hatFilmTrailer;
    Menue hatMenueTemp;
    Menue hatMenueMedien;

    public SuMAnwendung()
    {
        // Initialisierung der Oberklasse
        super(640, 480);
        hatTitel = new Etikett(20, 20, 280, 30, "Medienspieler");
        hatTitel.setzeSchriftgroesse(18);
        hatEtikettLaut = new Etikett(330, 280, 90, 30, "Lautstärke");
        hatEtikettLaut.setzeAusrichtung(2);
        hatKnopfStart = new Knopf(20, 280, 90, 30, "Start");
        hatKnopfStart.setzeBearbeiterGeklickt("hatKnopfStartGeklickt");
        hatKnopfPause = new Knopf(120, 280, 90, 30, "Pause");
        hatKnopfPause.setzeBearbeiterGeklickt("hatKnopfPauseGeklickt");
        hatKnopfPause.setzeBearbeiterFokusErhalten("hatKnopfPauseFokusErhalten");
        hatKnopfPause.setzeBearbeiterFokusVerloren("hatKnopfPauseFokusVerloren");
        hatKnopfStop = new Knopf(220, 280, 90, 30, "Stop");
        hatKnopfStop.setzeBearbeiterGeklickt("hatKnopfStopGeklickt");
        hatListe = new Zeilenbereich(20, 400, 600, 60, "");
        hatListe.setzeBearbeiterMarkierungGeaendert("hatListeMarkierungGeaendert");
        hatSchalterWiederholen = new Schalter(20, 370, 200, 20, "Wiederholen");
        hatSchalterWiederholen.setzeBearbeiterGeklickt("hatSchalterWiederholenGeklickt");
        hatAuswahlTitel = new Auswahl(420, 60, 200, 25);
        hatAuswahlTitel.haengeAn("Der Mond ist aufgegangen");
        hatAuswahlTitel.haengeAn("Die Gedanken sind frei");
        hatAuswahlTitel.haengeAn("Kein schöner Land");
        hatAuswahlTitel.setzeBearbeiterGeaendert("hatAuswahlTitelGeaendert");
        hatReglerLautstaerke = new Regler(430, 275, 190, 40, 70, 0, 100);
        hatReglerLautstaerke.setzeBearbeiterGeaendert("hatReglerLautstaerkeGeaendert");
        hatReglerLautstaerke.setzeBearbeiterFokusErhalten("hatReglerLautstaerkeFokusErhalten");
        hatReglerLautstaerke.setzeBearbeiterFokusVerloren("hatReglerLautstaerkeFokusVerloren");
        hatReglerBalance = new Regler(580, 100, 40, 160, 0, -50, 50);
        hatReglerBalance.setzeBearbeiterGeaendert("hatReglerBalanceGeaendert");
        hatFortschritt = new Fortschrittsbalken(20, 330, 600, 20, 0, 300);
        hatFortschritt.setzeWert(0);
        hatBildCover = new Bild(20, 60, 200, 150, "C:\\Medien\\cover.jpg");
        hatTonLied = new Ton();
        hatTonLied.ladeTon("C:\\Medien\\lied.wav");
        //hatTonLied.spieleTon();  // <- zum sofortigen Abspielen dekommentieren

        hatTonKlick = new Ton();
        hatTonKlick.ladeTon("klick.wav");
        //hatTonKlick.spieleTon();  // <- zum sofortigen Abspielen dekommentieren

        hatFilmTrailer = new Film("C:\\Medien\\trailer.mov");
        hatMenueMedien = new Menue("Medien");
        hatMenueMedien.haengeZeileAn("Öffnen ...", "hatMenueMedienOeffnen");
        hatMenueMedien.haengeTrennungAn();
        hatMenueTemp = hatMenueMedien.neuesUntermenue("Wiedergabe");
        hatMenueTemp.haengeZeileAn("Schneller", "hatMenueMedienSchneller");
        hatMenueTemp.haengeZeileAn("Langsamer", "hatMenueMedienLangsamer");
        hatMenueTemp.haengeTrennungAn();
        hatMenueTemp.haengeZeileAn("Normal", "hatMenueMedienNormal");
        hatMenueMedien.haengeZeileAn("Beenden", "hatMenueMedienBeenden");
    }

    public void hatKnopfStartGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfPauseGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfPauseFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfPauseFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatKnopfStopGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatListeMarkierungGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatSchalterWiederholenGeklickt()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatAuswahlTitelGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatReglerLautstaerkeGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatReglerLautstaerkeFokusErhalten()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatReglerLautstaerkeFokusVerloren()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatReglerBalanceGeaendert()
    {
        //   Hier wird der Methodeninhalt eingefügt
    }

    public void hatMenueMedienOeffnen()
    {

    }

    public void hatMenueMedienSchneller()
    {

    }

    public void hatMenueMedienLangsamer()
    {

    }

    public void hatMenueMedienNormal()
    {

    }

    public void hatMenueMedienBeenden()
    {

    }

}