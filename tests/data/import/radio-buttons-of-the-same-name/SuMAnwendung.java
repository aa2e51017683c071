        hatG1 = new Radiogruppe();
        hatRadioKnopf = new Radioknopf(0, 0, 20, 10, "a");
        hatG1.fuegeEin(hatRadioKnopf);
        hatG2 = new Radiogruppe();
        hatRadioKnopf = new Radioknopf(0, 50, 20, 10, "b");
        hatG2.fuegeEin(hatRadioKnopf);
        hatG3 = new Radiogruppe();
        hatG3.fuegeEin( hatRadioKnopf );
