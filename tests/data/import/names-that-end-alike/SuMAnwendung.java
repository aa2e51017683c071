        hatEtikett1 = new Etikett(1, 2, 3, 4, "a");
        hatEtikett11 = new Etikett(1, 2, 3, 4, "b");
        hatEtikett11.setzeAusrichtung(1);
        this.hatEtikett1.setzeAusrichtung(2);
