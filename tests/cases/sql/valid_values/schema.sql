CREATE TABLE parcel (
    id      INTEGER PRIMARY KEY,
    state   VARCHAR(10) NOT NULL DEFAULT 'new' CONSTRAINT known_state CHECK (state IN ('new', 'sent', 'it''s lost')),
    class   DECIMAL(3,1) CHECK ("class" IN (1, 2.5, -1)),
    note    VARCHAR(10) CHECK (note <> ''),
    size    TEXT,
    box     TEXT CHECK (box IN ('flat', NULL)),
    CHECK ([size] IN ('S', 'M'))
);
