-- The lending library of a town: works and their copies, readers, loans and reservations.
--
-- Make a database of it with:   sqlite3 library.sqlite < library.sql
-- The tables show the newer features of SQLite: STRICT and WITHOUT ROWID tables, full-text search, and a parent
-- key that only a unique index stands for.

CREATE TABLE branch (
    code        TEXT PRIMARY KEY,
    name        TEXT NOT NULL,
    opened      INTEGER NOT NULL
) STRICT, WITHOUT ROWID;

CREATE TABLE author (
    id          INTEGER PRIMARY KEY,
    family_name TEXT NOT NULL,
    given_names TEXT,
    born        INTEGER,
    died        INTEGER,
    CHECK (died IS NULL OR born IS NULL OR died >= born)
) STRICT;

CREATE TABLE work (
    id          INTEGER PRIMARY KEY,
    title       TEXT NOT NULL,
    language    TEXT NOT NULL DEFAULT 'en' CHECK (length(language) = 2),
    first_year  INTEGER,
    sequel_of   INTEGER REFERENCES work
) STRICT;

-- Who wrote, translated or illustrated what; the order of the names counts.
CREATE TABLE contribution (
    work        INTEGER NOT NULL REFERENCES work ON DELETE CASCADE,
    author      INTEGER NOT NULL REFERENCES author,
    role        TEXT NOT NULL DEFAULT 'author' CHECK (role IN ('author', 'translator', 'illustrator')),
    rank        INTEGER NOT NULL DEFAULT 1,
    PRIMARY KEY (work, author, role)
) WITHOUT ROWID;

CREATE TABLE edition (
    isbn        TEXT NOT NULL,
    work        INTEGER NOT NULL REFERENCES work,
    publisher   TEXT NOT NULL,
    year        INTEGER NOT NULL,
    pages       INTEGER
);
CREATE UNIQUE INDEX edition_isbn ON edition (isbn);
CREATE INDEX edition_work ON edition (work, year DESC);

CREATE TABLE copy (
    branch      TEXT NOT NULL REFERENCES branch (code),
    shelf_mark  TEXT NOT NULL,
    isbn        TEXT NOT NULL REFERENCES edition (isbn),
    bought      DATE,
    price       DECIMAL(8,2),
    lost        BOOLEAN NOT NULL DEFAULT 0,
    CONSTRAINT copy_key PRIMARY KEY (branch, shelf_mark)
);
CREATE INDEX copy_isbn ON copy (isbn);

CREATE TABLE reader (
    card        INTEGER PRIMARY KEY AUTOINCREMENT,
    name        VARCHAR(80) NOT NULL,
    email       VARCHAR(120) CONSTRAINT reader_email UNIQUE,
    home_branch TEXT NOT NULL REFERENCES branch,
    joined      DATE NOT NULL DEFAULT CURRENT_DATE,
    blocked     BOOLEAN NOT NULL DEFAULT 0
);

CREATE TABLE loan (
    id          INTEGER PRIMARY KEY,
    branch      TEXT NOT NULL,
    shelf_mark  TEXT NOT NULL,
    reader      INTEGER NOT NULL REFERENCES reader,
    lent        DATE NOT NULL DEFAULT CURRENT_DATE,
    due         DATE NOT NULL,
    returned    DATE,
    days_late   INTEGER AS (max(0, julianday(coalesce(returned, due)) - julianday(due))),
    CONSTRAINT loan_copy FOREIGN KEY (branch, shelf_mark) REFERENCES copy ON UPDATE CASCADE,
    CONSTRAINT loan_dates CHECK (due >= lent)
);
-- A copy is lent once at a time.
CREATE UNIQUE INDEX loan_out ON loan (branch, shelf_mark) WHERE returned IS NULL;
CREATE INDEX loan_reader ON loan (reader);

CREATE TABLE reservation (
    reader      INTEGER NOT NULL REFERENCES reader ON DELETE CASCADE,
    work        INTEGER NOT NULL REFERENCES work,
    asked       TIMESTAMP NOT NULL DEFAULT CURRENT_TIMESTAMP,
    ready       TIMESTAMP,
    PRIMARY KEY (reader, work)
);

-- What readers search: kept in step with the works by triggers.
CREATE VIRTUAL TABLE catalogue USING fts5 (title, names, tokenize = 'unicode61 remove_diacritics 2');

CREATE VIEW author_name AS
SELECT id, trim(coalesce(given_names, '') || ' ' || family_name) AS name, born, died FROM author;

CREATE VIEW work_author AS
SELECT w.id AS work, w.title, n.name AS author, c.role
FROM work w
JOIN contribution c ON c.work = w.id
JOIN author_name n ON n.id = c.author
ORDER BY w.title, c.rank;

CREATE VIEW overdue AS
SELECT l.id, l.reader, r.name, r.email, l.branch, l.shelf_mark, w.title, l.due
FROM loan l
JOIN reader r ON r.card = l.reader
JOIN copy c ON c.branch = l.branch AND c.shelf_mark = l.shelf_mark
JOIN edition e ON e.isbn = c.isbn
JOIN work w ON w.id = e.work
WHERE l.returned IS NULL AND l.due < CURRENT_DATE;

CREATE VIEW activity AS
SELECT reader, lent AS day, 'loan' AS what FROM loan
UNION ALL
SELECT reader, date(asked), 'reservation' FROM reservation;

CREATE TRIGGER work_added AFTER INSERT ON work
BEGIN
    INSERT INTO catalogue (rowid, title) VALUES (new.id, new.title);
END;

CREATE TRIGGER work_changed AFTER UPDATE OF title ON work
BEGIN
    UPDATE catalogue SET title = new.title WHERE rowid = new.id;
END;

CREATE TRIGGER loan_blocked BEFORE INSERT ON loan
WHEN (SELECT blocked FROM reader WHERE card = new.reader)
BEGIN
    SELECT raise(ABORT, 'this reader may not borrow anything at the moment');
END;

CREATE TRIGGER loan_returned AFTER UPDATE OF returned ON loan
WHEN old.returned IS NULL AND new.returned IS NOT NULL
BEGIN
    UPDATE reservation
    SET ready = CURRENT_TIMESTAMP
    WHERE ready IS NULL
      AND work = (SELECT e.work FROM copy c JOIN edition e ON e.isbn = c.isbn
                  WHERE c.branch = new.branch AND c.shelf_mark = new.shelf_mark);
END;

INSERT INTO branch VALUES ('C', 'Central library', 1911), ('H', 'Harbour branch', 1987);
INSERT INTO author (id, family_name, given_names, born, died) VALUES
    (1, 'Brontë', 'Charlotte', 1816, 1855), (2, 'Verne', 'Jules', 1828, 1905), (3, 'Butcher', 'William', 1951, NULL);
INSERT INTO work (id, title, language, first_year) VALUES (1, 'Jane Eyre', 'en', 1847), (2, 'Le Tour du monde', 'fr', 1872);
INSERT INTO contribution (work, author, role, rank) VALUES (1, 1, 'author', 1), (2, 2, 'author', 1), (2, 3, 'translator', 2);
INSERT INTO edition VALUES ('978-0-00-000001-1', 1, 'Harbour Press', 1998, 532);
INSERT INTO copy (branch, shelf_mark, isbn) VALUES ('C', 'Bro 1', '978-0-00-000001-1'), ('H', 'Bro 1', '978-0-00-000001-1');
INSERT INTO reader (name, email, home_branch) VALUES ('Nadia Osei', 'nadia@example.org', 'H');
INSERT INTO loan (branch, shelf_mark, reader, lent, due) VALUES ('H', 'Bro 1', 1, '2024-05-02', '2024-05-30');
