-- From version 1 to 2: a product has a number of its own, and texts compare as any SQLite tool can. Tables are made
-- anew under other names, filled, and take the place of the former ones; foreign keys are off meanwhile. A row that
-- named its product in another letter case, beyond ASCII, takes the product's spelling, or it would lose it.

CREATE TABLE Prodotti_2 (
  IDProdotto INTEGER PRIMARY KEY AUTOINCREMENT,
  IDCatalogo INTEGER NOT NULL REFERENCES Cataloghi (IDCatalogo) ON DELETE CASCADE ON UPDATE CASCADE,
  CodiceProdotto TEXT NOT NULL COLLATE NOCASE,
  Descrizione TEXT,
  IDFiltro1 INTEGER,
  IDFiltro2 INTEGER,
  IDFiltro3 INTEGER,
  IDFiltro4 INTEGER,
  IDFiltro5 INTEGER,
  Valore1 TEXT,
  Valore2 TEXT,
  Valore3 TEXT,
  Pubblica BOOLEAN NOT NULL DEFAULT TRUE,
  SchedaTecnica BOOLEAN NOT NULL DEFAULT FALSE,
  Immagine TEXT,
  Height INTEGER,
  Width INTEGER,
  OrdineTemp NUMERIC DEFAULT NULL,
  UNIQUE (IDCatalogo, CodiceProdotto)
);
INSERT INTO Prodotti_2
SELECT rowid, IDCatalogo, CodiceProdotto, Descrizione, IDFiltro1, IDFiltro2, IDFiltro3, IDFiltro4, IDFiltro5, Valore1,
  Valore2, Valore3, Pubblica, SchedaTecnica, Immagine, Height, Width, OrdineTemp
FROM Prodotti ORDER BY rowid;

CREATE TABLE Filtri_2 (
  IDValore INTEGER PRIMARY KEY AUTOINCREMENT,
  IDCatalogo INTEGER NOT NULL REFERENCES Cataloghi (IDCatalogo) ON DELETE CASCADE ON UPDATE CASCADE,
  IDNomeFiltro INTEGER NOT NULL,
  Valore TEXT COLLATE NOCASE,
  Pubblica BOOLEAN NOT NULL DEFAULT TRUE
);
INSERT INTO Filtri_2 SELECT IDValore, IDCatalogo, IDNomeFiltro, Valore, Pubblica FROM Filtri;

CREATE TABLE Immagini_2 (
  IDImmagine INTEGER PRIMARY KEY AUTOINCREMENT,
  IDCatalogo INTEGER NOT NULL,
  CodiceProdotto TEXT NOT NULL COLLATE NOCASE,
  Immagine TEXT,
  Height INTEGER,
  Width INTEGER,
  Descrizione TEXT,
  FOREIGN KEY (IDCatalogo, CodiceProdotto) REFERENCES Prodotti (IDCatalogo, CodiceProdotto)
    ON DELETE CASCADE ON UPDATE CASCADE
);
INSERT INTO Immagini_2
SELECT r.IDImmagine, r.IDCatalogo, coalesce(p.CodiceProdotto, r.CodiceProdotto), r.Immagine, r.Height, r.Width,
  r.Descrizione
FROM Immagini r LEFT JOIN Prodotti p ON p.IDCatalogo = r.IDCatalogo AND p.CodiceProdotto = r.CodiceProdotto
  AND p.CodiceProdotto <> r.CodiceProdotto COLLATE NOCASE;

CREATE TABLE SchedeTecniche_2 (
  IDScheda INTEGER PRIMARY KEY AUTOINCREMENT,
  IDCatalogo INTEGER NOT NULL,
  CodiceProdotto TEXT NOT NULL COLLATE NOCASE,
  Caratteristica TEXT,
  Valore TEXT,
  FOREIGN KEY (IDCatalogo, CodiceProdotto) REFERENCES Prodotti (IDCatalogo, CodiceProdotto)
    ON DELETE CASCADE ON UPDATE CASCADE
);
INSERT INTO SchedeTecniche_2
SELECT r.IDScheda, r.IDCatalogo, coalesce(p.CodiceProdotto, r.CodiceProdotto), r.Caratteristica, r.Valore
FROM SchedeTecniche r LEFT JOIN Prodotti p ON p.IDCatalogo = r.IDCatalogo AND p.CodiceProdotto = r.CodiceProdotto
  AND p.CodiceProdotto <> r.CodiceProdotto COLLATE NOCASE;

CREATE TABLE PExtension_2 (
  CodiceProdotto TEXT NOT NULL COLLATE NOCASE,
  IDCatalogo INTEGER NOT NULL,
  IDExtension INTEGER NOT NULL REFERENCES Extensions (IDExtension) ON DELETE CASCADE ON UPDATE CASCADE,
  Valore TEXT,
  PRIMARY KEY (IDCatalogo, CodiceProdotto, IDExtension),
  FOREIGN KEY (IDCatalogo, CodiceProdotto) REFERENCES Prodotti (IDCatalogo, CodiceProdotto)
    ON DELETE CASCADE ON UPDATE CASCADE
);
INSERT INTO PExtension_2
SELECT coalesce(p.CodiceProdotto, r.CodiceProdotto), r.IDCatalogo, r.IDExtension, r.Valore
FROM PExtension r LEFT JOIN Prodotti p ON p.IDCatalogo = r.IDCatalogo AND p.CodiceProdotto = r.CodiceProdotto
  AND p.CodiceProdotto <> r.CodiceProdotto COLLATE NOCASE;

-- The counters go on, those of emptied tables too.
DELETE FROM sqlite_sequence WHERE name IN ('Filtri_2', 'Immagini_2', 'SchedeTecniche_2');
INSERT INTO sqlite_sequence (name, seq)
SELECT name || '_2', seq FROM sqlite_sequence WHERE name IN ('Filtri', 'Immagini', 'SchedeTecniche');

DROP TABLE PExtension;
DROP TABLE SchedeTecniche;
DROP TABLE Immagini;
DROP TABLE Filtri;
DROP TABLE Prodotti;
ALTER TABLE Prodotti_2 RENAME TO Prodotti;
ALTER TABLE Filtri_2 RENAME TO Filtri;
ALTER TABLE Immagini_2 RENAME TO Immagini;
ALTER TABLE SchedeTecniche_2 RENAME TO SchedeTecniche;
ALTER TABLE PExtension_2 RENAME TO PExtension;

CREATE INDEX ProdottiPerCatalogo ON Prodotti (IDCatalogo);
CREATE INDEX ProdottiSenzaOrdine ON Prodotti (IDCatalogo) WHERE OrdineTemp IS NULL;
CREATE INDEX FiltriPerCatalogo ON Filtri (IDCatalogo, IDNomeFiltro);
CREATE INDEX ImmaginiPerProdotto ON Immagini (IDCatalogo, CodiceProdotto);
CREATE INDEX SchedePerProdotto ON SchedeTecniche (IDCatalogo, CodiceProdotto);
CREATE INDEX PExtensionPerNome ON PExtension (IDExtension);
