-- The catalog database, version 2. It is made once, when the program is built, and delivered with it; the program itself
-- creates no table. What takes an older one to this version are the numbered scripts in migrations.
--
-- Any SQLite tool can read, check and write it: no column names a collation or function of the program. Codes compare
-- without regard to letter case, as file systems differ on it; beyond ASCII the program sees to that when it writes one.
-- BOOLEAN columns hold 0 and 1. Counters never give a number twice (AUTOINCREMENT).
PRAGMA application_id = 0x566F726C;
PRAGMA user_version = 3;

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

-- IDFiltro1 to IDFiltro5 hold a Filtri.IDValore, or 0 or Null for none: a foreign key cannot say that.
CREATE TABLE Prodotti (
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

-- The products of a catalog in the order in which they came, which is that of IDProdotto.
CREATE INDEX ProdottiPerCatalogo ON Prodotti (IDCatalogo);

-- Whether any product has no number yet is asked whenever a catalog is opened. The index holds those alone, so
-- that numbering a catalog does not have to keep it.
CREATE INDEX ProdottiSenzaOrdine ON Prodotti (IDCatalogo) WHERE OrdineTemp IS NULL;

CREATE TABLE Filtri (
  IDValore INTEGER PRIMARY KEY AUTOINCREMENT,
  IDCatalogo INTEGER NOT NULL REFERENCES Cataloghi (IDCatalogo) ON DELETE CASCADE ON UPDATE CASCADE,
  IDNomeFiltro INTEGER NOT NULL,
  Valore TEXT COLLATE NOCASE,
  Pubblica BOOLEAN NOT NULL DEFAULT TRUE
);
CREATE INDEX FiltriPerCatalogo ON Filtri (IDCatalogo, IDNomeFiltro);

CREATE TABLE Immagini (
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
CREATE INDEX ImmaginiPerProdotto ON Immagini (IDCatalogo, CodiceProdotto);

CREATE TABLE SchedeTecniche (
  IDScheda INTEGER PRIMARY KEY AUTOINCREMENT,
  IDCatalogo INTEGER NOT NULL,
  CodiceProdotto TEXT NOT NULL COLLATE NOCASE,
  Caratteristica TEXT,
  Valore TEXT,
  FOREIGN KEY (IDCatalogo, CodiceProdotto) REFERENCES Prodotti (IDCatalogo, CodiceProdotto)
    ON DELETE CASCADE ON UPDATE CASCADE
);
CREATE INDEX SchedePerProdotto ON SchedeTecniche (IDCatalogo, CodiceProdotto);
CREATE INDEX SchedePerCaratteristica ON SchedeTecniche (IDCatalogo, Caratteristica COLLATE NOCASE);

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
  CodiceProdotto TEXT NOT NULL COLLATE NOCASE,
  IDCatalogo INTEGER NOT NULL,
  IDExtension INTEGER NOT NULL REFERENCES Extensions (IDExtension) ON DELETE CASCADE ON UPDATE CASCADE,
  Valore TEXT,
  PRIMARY KEY (IDCatalogo, CodiceProdotto, IDExtension),
  FOREIGN KEY (IDCatalogo, CodiceProdotto) REFERENCES Prodotti (IDCatalogo, CodiceProdotto)
    ON DELETE CASCADE ON UPDATE CASCADE
);
CREATE INDEX PExtensionPerNome ON PExtension (IDExtension);
