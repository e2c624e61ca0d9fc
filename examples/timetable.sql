-- The timetable of a small railway, in the style of a legacy database: short names, keys of several columns, no
-- declared types in places, and references that were never checked. Reading it gives warnings.
--
-- Make a database of it with:   sqlite3 timetable.sqlite < timetable.sql

CREATE TABLE stn (cd CHAR(5) PRIMARY KEY, nm VARCHAR(40), km, lat DOUBLE, lon DOUBLE, UNIQUE (nm));

CREATE TABLE lin (no SMALLINT NOT NULL, dir CHAR(1) NOT NULL, nm VARCHAR(40), opr VARCHAR(8), PRIMARY KEY (no, dir));

CREATE TABLE trn (
    no INTEGER NOT NULL,
    prd INTEGER NOT NULL,                 -- timetable period
    lin_no SMALLINT,
    lin_dir CHAR(1),
    cls [TRAIN CLASS],
    CONSTRAINT trn_pk PRIMARY KEY (prd, no),
    CONSTRAINT trn_lin_fk FOREIGN KEY (lin_dir, lin_no) REFERENCES LIN (DIR, NO) ON DELETE SET NULL
);

CREATE TABLE stp (
    prd INTEGER NOT NULL,
    trn INTEGER NOT NULL,
    seq SMALLINT NOT NULL,
    stn CHAR(5) NOT NULL REFERENCES Stn,
    arr TIME,
    dep TIME,
    trk VARCHAR(4),
    PRIMARY KEY (prd, trn, seq),
    FOREIGN KEY (prd, trn) REFERENCES trn ON DELETE CASCADE ON UPDATE CASCADE
);
CREATE INDEX stp_stn ON stp (stn, dep);

CREATE TABLE con (
    prd INTEGER NOT NULL, trn INTEGER NOT NULL, seq SMALLINT NOT NULL,
    onw INTEGER NOT NULL,
    min SMALLINT DEFAULT 3,
    FOREIGN KEY (prd, trn, seq) REFERENCES stp (prd, trn, seq) DEFERRABLE INITIALLY DEFERRED,
    FOREIGN KEY (prd, onw) REFERENCES trn (prd, no)
);

-- The operators were in another database once, and a line's name was never unique.
CREATE TABLE frq (
    lin VARCHAR(40) REFERENCES lin (nm),
    opr VARCHAR(8) REFERENCES opr (cd),
    dow TINYINT,
    trips NUMERIC(4)
);

CREATE VIEW dpt AS
SELECT s.nm AS station, p.dep, t.no AS train, t.cls, l.nm AS line
FROM stp p
JOIN stn s ON s.cd = p.stn
JOIN trn t ON t.prd = p.prd AND t.no = p.trn
LEFT JOIN lin l ON l.no = t.lin_no AND l.dir = t.lin_dir
WHERE p.dep IS NOT NULL;

-- The function is one of the old program's own.
CREATE VIEW dist AS SELECT a.cd AS a, b.cd AS b, great_circle(a.lat, a.lon, b.lat, b.lon) AS km FROM stn a, stn b;

INSERT INTO stn VALUES ('AHAF', 'Althafen', 0, 53.9, 8.1), ('MOOR', 'Moorende', 14.2, 53.8, 8.3);
INSERT INTO lin VALUES (7, 'A', 'Moor line', 'KB'), (7, 'B', 'Moor line', 'KB');
INSERT INTO trn VALUES (701, 2024, 7, 'A', 'RB');
INSERT INTO stp VALUES (2024, 701, 1, 'AHAF', NULL, '06:12', '2'), (2024, 701, 2, 'MOOR', '06:31', NULL, '1');
