-- From version 1 of the schema to version 2.

-- The cancellation of a deposit looks for the lines of each of its receipts.
CREATE INDEX Ix_Recibo_Pago_Rp_Folio_Deposito_Rp_Folio
    ON Recibo_Pago (Rp_Folio_Deposito, Rp_Folio, Es_Cve_Estado);
DROP INDEX Ix_Recibo_Pago_Rp_Folio_Deposito ON Recibo_Pago;

-- What people read: documents by date, the movements of an account by date, the checks and requests that pay a document.
CREATE INDEX Ix_Banco_Movimiento_Bc_Cve_Banco_Cuenta_Bm_Fecha
    ON Banco_Movimiento (Bc_Cve_Banco_Cuenta, Bm_Fecha, Es_Cve_Estado, Bm_Importe);
DROP INDEX Ix_Banco_Movimiento_Bc_Cve_Banco_Cuenta ON Banco_Movimiento;
CREATE INDEX Ix_Recibo_Pago_Rp_Fecha
    ON Recibo_Pago (Rp_Fecha, Rp_Folio, Rp_Id);
CREATE INDEX Ix_Deposito_Pago_Dp_Fecha
    ON Deposito_Pago (Dp_Fecha, Dp_Folio, Dp_Id);
CREATE INDEX Ix_Banco_Movimiento_Bm_Fecha
    ON Banco_Movimiento (Bm_Fecha, Bm_Folio);
CREATE INDEX Ix_Cheque_Ch_Fecha
    ON Cheque (Ch_Fecha, Ch_Folio);
CREATE INDEX Ix_Cheque_x_Aplicar_Cxp_Folio
    ON Cheque_x_Aplicar (Cxp_Folio, Ch_Folio);
CREATE INDEX Ix_Solicitud_Cheque_Sch_Fecha
    ON Solicitud_Cheque (Sch_Fecha, Sch_Folio);
CREATE INDEX Ix_Solicitud_Cheque_Detalle_Scd_Documento
    ON Solicitud_Cheque_Detalle (Scd_Documento, Scd_Tabla, Sch_Folio);
CREATE INDEX Ix_Cuenta_x_Cobrar_Cxc_Fecha
    ON Cuenta_x_Cobrar (Cxc_Fecha, Cxc_Folio);
CREATE INDEX Ix_Cuenta_x_Pagar_Cxp_Fecha
    ON Cuenta_x_Pagar (Cxp_Fecha, Cxp_Folio);
CREATE INDEX Ix_Anticipo_Cxc_An_Fecha
    ON Anticipo_Cxc (An_Fecha, An_Folio);
CREATE INDEX Ix_Poliza_Pz_Fecha
    ON Poliza (Pz_Fecha, Pz_Folio);

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
