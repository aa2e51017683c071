package	schule ;
import sum . komponenten . * ;

public class SuMAnwendung
	extends sum.ereignis.EBAnwendung
{
	// hatAlt = new Knopf(1, 2, 3, 4, "auskommentiert");
	private static final String ART = "Quiz"; private Knopf hatA , hatB = new Knopf ( 10 , 20 , 80 , 25 , "B" ) , hatC ;
	protected  Etikett hatTitel = new Etikett(0, 0, 200, 30, "Straße \"Mitte\", Ecke \\ Ende");
	private Auswahl auswahl; Regler regler; Fortschrittsbalken balken; Tabelle tabelle;
	private Kennwortfeld kennwort; Bild bild; Ton ton; Film film; Zeichenbereich bereich;

	public
	SuMAnwendung ( )
	{
		super /* Breite */ ( 800 , // Höhe
		                     600 ) ;
		this . hatA = new Knopf
		(
			10 , 50 ,	80 , 25 ,
			"A" /* mit Kommentar, und Komma */
		) ;
		this.hatA.setzeBearbeiterGeklickt ( "hatAGeklickt" ) ; hatB . setzeBearbeiterFokusVerloren("hatBFokusVerloren");
		hatC = new sum.komponenten.Knopf(10, 80, 80, 25, "Ende" + " // kein Kommentar");
		hatTitel.setzeAusrichtung(Ausrichtung.RECHTS);
		hatTitel.setzeSchriftgroesse( 24 );
		auswahl = new Auswahl(100, 10, 90, 20); auswahl.haengeAn("eins"); auswahl.haengeAn(""); auswahl.haengeAn("drei, vier");
		auswahl.setzeBearbeiterGeaendert("auswahlGeaendert");
		regler = new Regler(100, 50, 20, 200, 5, -10, 10);
		balken = new Fortschrittsbalken(130, 50, 200, 20, 1, 9); balken.setzeWert(4);
		tabelle = new Tabelle(130, 80, 300, 200, 4, 2);
		tabelle.setzeSpaltentitelAn("Wort; {alt}", 1);
		tabelle.setzeSpaltentitelAn("Übersetzung", 2);
		tabelle.setzeBearbeiterMarkierungGeaendert("tabelleMarkierungGeaendert");
		kennwort = new Kennwortfeld(440, 80, 100, 20, '\''); kennwort.setzeInhalt("geheim");
		bild = new Bild(440, 110, 160, 120, "C:\\Bilder\\haus.gif");
		ton = new Ton(); ton.ladeTon("klang.wav"); ton.spieleTon();
		film = new Film("c:\\film.mov");
		bereich = new Zeichenbereich(440, 240, 100, 100, "Zeile 1\nZeile 2");
		String block = """
			hatTitel = new Etikett(1, 2, 3, 4, "Text"); \"""
			hatTitel.setzeSchriftgroesse(99); """;
		bereich.setzeInhalt("neu\tin " + "zwei Teilen");
	}
}
