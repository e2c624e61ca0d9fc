-- A small mail-order shop: customers, what they order, and what is in stock.
--
-- Make a database of it with:   sqlite3 shop.sqlite < shop.sql
-- It shows what a model takes from a database: named and unnamed keys, a table that refers to itself, keys of
-- several columns, generated columns, indexes of several kinds, views on views and triggers. What a model cannot
-- hold is here too: CHECK expressions, collations, an index with a condition and one with an expression.

PRAGMA foreign_keys = ON;

CREATE TABLE customer (
    id          INTEGER PRIMARY KEY AUTOINCREMENT,
    number      VARCHAR(12) NOT NULL,
    name        VARCHAR(80) NOT NULL COLLATE NOCASE,
    email       VARCHAR(120),
    credit      DECIMAL(10,2) NOT NULL DEFAULT 0 CHECK (credit >= 0),
    created     TIMESTAMP NOT NULL DEFAULT CURRENT_TIMESTAMP,
    recruited_by INTEGER REFERENCES customer ON DELETE SET NULL,  -- who brought the customer to the shop
    CONSTRAINT customer_number UNIQUE (number)
);

CREATE TABLE address (
    customer    INTEGER NOT NULL REFERENCES customer ON DELETE CASCADE,
    kind        CHAR(1) NOT NULL CHECK (kind IN ('B', 'S')),      -- billing or shipping
    street      VARCHAR(80) NOT NULL,
    postcode    VARCHAR(10) NOT NULL,
    city        VARCHAR(60) NOT NULL,
    country     CHAR(2) NOT NULL DEFAULT 'DE',
    CONSTRAINT address_key PRIMARY KEY (customer, kind)
);

CREATE TABLE category (
    id          INTEGER PRIMARY KEY,
    name        VARCHAR(40) NOT NULL UNIQUE,
    parent      INTEGER,
    CONSTRAINT category_tree FOREIGN KEY (parent) REFERENCES category (id) ON DELETE RESTRICT
);

CREATE TABLE product (
    sku         VARCHAR(20) PRIMARY KEY NOT NULL,
    name        VARCHAR(80) NOT NULL,
    description TEXT,
    category    INTEGER NOT NULL REFERENCES category,
    price       DECIMAL(10,2) NOT NULL CHECK (price > 0),
    tax_rate    DECIMAL(4,3) NOT NULL DEFAULT 0.19,
    gross_price DECIMAL(10,2) GENERATED ALWAYS AS (round(price * (1 + tax_rate), 2)) STORED,
    stock       INTEGER NOT NULL DEFAULT 0,
    reorder_at  SMALLINT NOT NULL DEFAULT 5,
    picture     BLOB,
    active      BOOLEAN NOT NULL DEFAULT TRUE
);

-- Names with a blank and with a keyword in them have to be quoted everywhere.
CREATE TABLE "order" (
    id          INTEGER PRIMARY KEY AUTOINCREMENT,
    customer    INTEGER NOT NULL,
    ship_to     CHAR(1) NOT NULL DEFAULT 'S',
    "placed on" DATE NOT NULL DEFAULT CURRENT_DATE,
    shipped     DATE,
    state       VARCHAR(10) NOT NULL DEFAULT 'open' CHECK (state IN ('open', 'paid', 'shipped', 'cancelled')),
    CONSTRAINT order_customer FOREIGN KEY (customer) REFERENCES customer (id),
    CONSTRAINT order_address FOREIGN KEY (customer, ship_to) REFERENCES address (customer, kind)
        ON UPDATE CASCADE
);

CREATE TABLE order_line (
    "order"     INTEGER NOT NULL REFERENCES "order" ON DELETE CASCADE,
    line        SMALLINT NOT NULL,
    product     VARCHAR(20) NOT NULL REFERENCES product ON UPDATE CASCADE,
    quantity    INTEGER NOT NULL DEFAULT 1 CHECK (quantity > 0),
    price       DECIMAL(10,2) NOT NULL,
    amount      DECIMAL(12,2) AS (quantity * price),
    PRIMARY KEY ("order", line)
);

-- At most one invoice for an order: the reference is unique.
CREATE TABLE invoice (
    number      VARCHAR(16) PRIMARY KEY,
    "order"     INTEGER NOT NULL UNIQUE REFERENCES "order",
    issued      DATE NOT NULL,
    paid        DATE,
    total       DECIMAL(12,2) NOT NULL
);

CREATE TABLE price_change (
    product     VARCHAR(20) NOT NULL REFERENCES product ON DELETE CASCADE ON UPDATE CASCADE,
    changed     TIMESTAMP NOT NULL DEFAULT CURRENT_TIMESTAMP,
    old_price   DECIMAL(10,2) NOT NULL,
    new_price   DECIMAL(10,2) NOT NULL
);

CREATE INDEX address_place ON address (country, postcode);
CREATE INDEX order_of_customer ON "order" (customer, "placed on" DESC);
CREATE INDEX order_line_product ON order_line (product);
CREATE INDEX product_category ON product (category);
CREATE INDEX price_change_product ON price_change (product);
CREATE UNIQUE INDEX customer_email ON customer (lower(email));
CREATE INDEX order_open ON "order" ("placed on") WHERE state IN ('open', 'paid');

CREATE VIEW order_total AS
SELECT o.id AS "order",
       o.customer,
       o."placed on",
       o.state,
       count(l.line) AS lines,
       coalesce(sum(l.amount), 0) AS total
FROM "order" o
LEFT JOIN order_line l ON l."order" = o.id
GROUP BY o.id;

CREATE VIEW customer_overview (customer, name, city, orders, turnover) AS
SELECT c.id, c.name, a.city, count(t."order"), sum(t.total)
FROM customer c
LEFT JOIN address a ON a.customer = c.id AND a.kind = 'B'
LEFT JOIN order_total t ON t.customer = c.id AND t.state <> 'cancelled'
GROUP BY c.id;

CREATE VIEW to_reorder AS
SELECT p.sku, p.name, p.stock, p.reorder_at, c.name AS category
FROM product p
JOIN category c ON c.id = p.category
WHERE p.active AND p.stock <= p.reorder_at;

CREATE VIEW open_order AS
SELECT id, customer, ship_to, "placed on" FROM "order" WHERE state = 'open';

-- Every change of a price is kept.
CREATE TRIGGER product_price AFTER UPDATE OF price ON product
WHEN new.price <> old.price
BEGIN
    INSERT INTO price_change (product, old_price, new_price) VALUES (new.sku, old.price, new.price);
END;

CREATE TRIGGER order_line_stock AFTER INSERT ON order_line
BEGIN
    UPDATE product SET stock = stock - new.quantity WHERE sku = new.product;
END;

CREATE TRIGGER order_line_return AFTER DELETE ON order_line
BEGIN
    UPDATE product SET stock = stock + old.quantity WHERE sku = old.product;
END;

CREATE TRIGGER order_keep BEFORE DELETE ON "order"
WHEN old.state = 'shipped'
BEGIN
    SELECT raise(ABORT, 'an order that was shipped stays');
END;

-- An order is cancelled by deleting it from the view.
CREATE TRIGGER open_order_cancel INSTEAD OF DELETE ON open_order
BEGIN
    UPDATE "order" SET state = 'cancelled' WHERE id = old.id;
END;

INSERT INTO category (id, name, parent) VALUES (1, 'Kitchen', NULL), (2, 'Knives', 1), (3, 'Garden', NULL);
INSERT INTO product (sku, name, category, price, stock) VALUES
    ('KN-20', 'Chef''s knife, 20 cm', 2, 59.00, 14),
    ('KN-09', 'Paring knife, 9 cm', 2, 18.50, 3),
    ('GA-01', 'Watering can; 10 l', 3, 27.90, 8);
INSERT INTO customer (number, name, email, recruited_by) VALUES
    ('C-1001', 'Imke Behrends', 'imke@example.org', NULL),
    ('C-1002', 'Óscar Vidal', 'oscar@example.org', 1);
INSERT INTO address (customer, kind, street, postcode, city) VALUES
    (1, 'B', 'Deichweg 4', '26506', 'Norden'),
    (1, 'S', 'Deichweg 4', '26506', 'Norden'),
    (2, 'S', 'Am Markt 11', '04109', 'Leipzig');
INSERT INTO "order" (customer, "placed on") VALUES (1, '2024-03-02'), (2, '2024-03-05');
INSERT INTO order_line ("order", line, product, quantity, price) VALUES
    (1, 1, 'KN-20', 1, 59.00), (1, 2, 'KN-09', 2, 18.50), (2, 1, 'GA-01', 1, 27.90);
INSERT INTO invoice VALUES ('2024-0001', 1, '2024-03-03', NULL, 96.00);
