-- From version 2 to 3: a feature is found by its beginning, at every letter that is typed.

CREATE INDEX SchedePerCaratteristica ON SchedeTecniche (IDCatalogo, Caratteristica COLLATE NOCASE);
