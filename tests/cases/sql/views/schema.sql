CREATE TABLE account (
    id INTEGER PRIMARY KEY,
    owner TEXT NOT NULL COLLATE NOCASE,
    cents INTEGER NOT NULL DEFAULT 0
);
CREATE TABLE change (account INTEGER REFERENCES account, at TIMESTAMP DEFAULT CURRENT_TIMESTAMP);
CREATE VIEW balance AS
    SELECT id, owner AS name, cents / 100.0 AS amount FROM account;
CREATE TRIGGER log_change AFTER UPDATE OF cents ON account WHEN new.cents <> old.cents
BEGIN
    INSERT INTO change (account) VALUES (new.id);
END;
CREATE TRIGGER keep_balance INSTEAD OF DELETE ON balance
BEGIN
    SELECT 1;
END;
