-- a comment
CREATE TABLE "a""b"([c d] int, `e` /* f */ text, 'g' blob, CONSTRAINT "x" FOREIGN KEY([c d], e) REFERENCES "a""b"(e, [c d]) ON UPDATE SET NULL DEFERRABLE INITIALLY DEFERRED);
