CREATE TABLE customer (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    name VARCHAR(40) NOT NULL,
    tax_number TEXT UNIQUE
);
CREATE TABLE purchase (
    year INTEGER NOT NULL,
    number INTEGER NOT NULL,
    customer INTEGER NOT NULL REFERENCES Customer ON DELETE CASCADE ON UPDATE RESTRICT,
    prior_year INTEGER,
    prior_number INTEGER,
    total DECIMAL(10, 2) DEFAULT 0,
    CONSTRAINT pk_purchase PRIMARY KEY (year, number),
    CONSTRAINT fk_prior FOREIGN KEY (prior_number, prior_year) REFERENCES purchase (NUMBER, year) ON DELETE SET NULL
);
CREATE TABLE line (
    year INTEGER NOT NULL,
    number INTEGER NOT NULL,
    position INTEGER NOT NULL,
    UNIQUE (year, number, position),
    FOREIGN KEY (year, number) REFERENCES purchase
);
CREATE UNIQUE INDEX i_name ON customer (name DESC, id);
