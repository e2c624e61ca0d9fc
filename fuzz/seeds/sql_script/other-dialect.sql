CREATE TABLE dbo.t (id int IDENTITY(1,1), n nvarchar(max));
GO
