-- From version 1 of the schema to version 2.

-- The cancellation of a deposit looks for the lines of each of its receipts.
CREATE INDEX Ix_Recibo_Pago_Rp_Folio_Deposito_Rp_Folio
    ON Recibo_Pago (Rp_Folio_Deposito, Rp_Folio, Es_Cve_Estado);
DROP INDEX Ix_Recibo_Pago_Rp_Folio_Deposito ON Recibo_Pago;

CREATE TABLE Peticion_Servicio (
    Pe_Nombre varchar(60) NOT NULL,
    Pe_Llave varchar(200) NOT NULL,
    Pe_Huella varchar(64) DEFAULT '',
    Pe_Estado int DEFAULT 0,
    Pe_Respuesta nvarchar(max) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    PRIMARY KEY (Pe_Nombre, Pe_Llave)
);
CREATE INDEX Ix_Peticion_Servicio_Fecha_Alta
    ON Peticion_Servicio (Fecha_Alta);

ALTER TABLE Esquema_Suite ADD Eq_Programa varchar(60) DEFAULT '';
UPDATE Esquema_Suite SET Eq_Programa = '0.2.0' WHERE Eq_Nombre = 'CUVEXA';
