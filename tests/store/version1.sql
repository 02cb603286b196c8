-- A database of version 1 with something of everything in it: products that did not come in the order of their codes,
-- Nulls, a code beyond ASCII that its children write in another letter case, a plug-in's own table, and counters that
-- are ahead of their tables.
PRAGMA application_id = 0x566F726C;
PRAGMA user_version = 1;

CREATE TABLE Cataloghi (
  IDCatalogo INTEGER PRIMARY KEY AUTOINCREMENT,
  NomeCatalogo TEXT,
  Descrizione TEXT,
  NomeFiltro1 TEXT,
  NomeFiltro2 TEXT,
  NomeFiltro3 TEXT,
  NomeFiltro4 TEXT,
  NomeFiltro5 TEXT,
  NomeValore1 TEXT,
  NomeValore2 TEXT,
  NomeValore3 TEXT,
  Titolo TEXT,
  Sottotitolo TEXT,
  Spalla TEXT,
  Azienda TEXT,
  Indirizzo TEXT,
  Citta TEXT,
  Provincia TEXT,
  Stato TEXT,
  CAP TEXT,
  Tel TEXT,
  Fax TEXT,
  Email TEXT,
  URL TEXT,
  Extras TEXT,
  Logo TEXT,
  Width INTEGER,
  Height INTEGER
);

CREATE TABLE Prodotti (
  IDCatalogo INTEGER NOT NULL REFERENCES Cataloghi (IDCatalogo) ON DELETE CASCADE ON UPDATE CASCADE,
  CodiceProdotto TEXT NOT NULL COLLATE VORLINA_TEXT,
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
  PRIMARY KEY (IDCatalogo, CodiceProdotto)
);

CREATE INDEX ProdottiSenzaOrdine ON Prodotti (IDCatalogo) WHERE OrdineTemp IS NULL;

CREATE TABLE Filtri (
  IDValore INTEGER PRIMARY KEY AUTOINCREMENT,
  IDCatalogo INTEGER NOT NULL REFERENCES Cataloghi (IDCatalogo) ON DELETE CASCADE ON UPDATE CASCADE,
  IDNomeFiltro INTEGER NOT NULL,
  Valore TEXT COLLATE VORLINA_TEXT,
  Pubblica BOOLEAN NOT NULL DEFAULT TRUE
);
CREATE INDEX FiltriPerCatalogo ON Filtri (IDCatalogo, IDNomeFiltro);

CREATE TABLE Immagini (
  IDImmagine INTEGER PRIMARY KEY AUTOINCREMENT,
  IDCatalogo INTEGER NOT NULL,
  CodiceProdotto TEXT NOT NULL COLLATE VORLINA_TEXT,
  Immagine TEXT,
  Height INTEGER,
  Width INTEGER,
  Descrizione TEXT,
  FOREIGN KEY (IDCatalogo, CodiceProdotto) REFERENCES Prodotti (IDCatalogo, CodiceProdotto)
    ON DELETE CASCADE ON UPDATE CASCADE
);
CREATE INDEX ImmaginiPerProdotto ON Immagini (IDCatalogo, CodiceProdotto);

CREATE TABLE SchedeTecniche (
  IDScheda INTEGER PRIMARY KEY AUTOINCREMENT,
  IDCatalogo INTEGER NOT NULL,
  CodiceProdotto TEXT NOT NULL COLLATE VORLINA_TEXT,
  Caratteristica TEXT,
  Valore TEXT,
  FOREIGN KEY (IDCatalogo, CodiceProdotto) REFERENCES Prodotti (IDCatalogo, CodiceProdotto)
    ON DELETE CASCADE ON UPDATE CASCADE
);
CREATE INDEX SchedePerProdotto ON SchedeTecniche (IDCatalogo, CodiceProdotto);

CREATE TABLE Extensions (
  IDExtension INTEGER PRIMARY KEY AUTOINCREMENT,
  ExtensionName TEXT NOT NULL UNIQUE,
  C BOOLEAN NOT NULL DEFAULT FALSE,
  P BOOLEAN NOT NULL DEFAULT FALSE
);

CREATE TABLE CExtension (
  IDCatalogo INTEGER NOT NULL REFERENCES Cataloghi (IDCatalogo) ON DELETE CASCADE ON UPDATE CASCADE,
  IDExtension INTEGER NOT NULL REFERENCES Extensions (IDExtension) ON DELETE CASCADE ON UPDATE CASCADE,
  Valore TEXT,
  PRIMARY KEY (IDCatalogo, IDExtension)
);
CREATE INDEX CExtensionPerNome ON CExtension (IDExtension);

CREATE TABLE PExtension (
  CodiceProdotto TEXT NOT NULL COLLATE VORLINA_TEXT,
  IDCatalogo INTEGER NOT NULL,
  IDExtension INTEGER NOT NULL REFERENCES Extensions (IDExtension) ON DELETE CASCADE ON UPDATE CASCADE,
  Valore TEXT,
  PRIMARY KEY (IDCatalogo, CodiceProdotto, IDExtension),
  FOREIGN KEY (IDCatalogo, CodiceProdotto) REFERENCES Prodotti (IDCatalogo, CodiceProdotto)
    ON DELETE CASCADE ON UPDATE CASCADE
);
CREATE INDEX PExtensionPerNome ON PExtension (IDExtension);

CREATE TABLE Plugin (
  Riga INTEGER PRIMARY KEY,
  IDCatalogo INTEGER,
  Codice TEXT,
  FOREIGN KEY (IDCatalogo, Codice) REFERENCES Prodotti (IDCatalogo, CodiceProdotto) ON DELETE CASCADE ON UPDATE CASCADE
);

INSERT INTO Cataloghi (IDCatalogo, NomeCatalogo, Width) VALUES (1, 'Uno', 5), (4, 'L''altro', NULL), (9, 'gone', 1);
DELETE FROM Cataloghi WHERE IDCatalogo = 9;
INSERT INTO Prodotti (rowid, IDCatalogo, CodiceProdotto, Descrizione, IDFiltro1, Valore2, Pubblica, Immagine, OrdineTemp)
VALUES (2, 1, 'b', 'Però "caro"', 3, '1,5', FALSE, '/a/1-b.jpg', 2.5), (7, 1, 'CAFFÈ-2', NULL, 0, NULL, TRUE, NULL, 1),
  (8, 1, 'a', '', NULL, '', TRUE, '', NULL), (9, 4, 'caffè-2', 'x', NULL, NULL, TRUE, NULL, 1);
INSERT INTO Filtri VALUES (3, 1, 1, 'Blu', FALSE), (5, 4, 2, NULL, TRUE), (11, 1, 1, 'gone', TRUE);
DELETE FROM Filtri WHERE IDValore = 11;
INSERT INTO Immagini VALUES (4, 1, 'caffè-2', '/a/4.jpg', 3, NULL, 'Davanti'), (6, 1, 'B', NULL, NULL, 2, NULL);
UPDATE sqlite_sequence SET seq = 40 WHERE name = 'Immagini';
INSERT INTO SchedeTecniche VALUES (8, 1, 'Caffè-2', 'Peso', NULL);
INSERT INTO SchedeTecniche VALUES (12, 1, 'a', NULL, '3 kg');
INSERT INTO Extensions VALUES (2, 'VorlinaHtml', TRUE, TRUE);
INSERT INTO CExtension VALUES (1, 2, 'it'), (4, 2, NULL);
INSERT INTO PExtension VALUES ('caffè-2', 1, 2, '1'), ('A', 1, 2, NULL);
INSERT INTO Plugin VALUES (1, 1, 'B'), (2, 1, NULL);
