-- Administration

-- ---- the version of the schema

SELECT Eq_Version
FROM Esquema_Suite
WHERE Eq_Nombre = 'CUVEXA';

-- ---- all parameters

SELECT Ps_Nombre, Ps_Valor
FROM Parametro_Sistema
ORDER BY Ps_Nombre;

-- ---- a parameter is set, set anew and taken away

-- DataServices: SELECT Parametro_Sistema with 'FTO_CLIENTE'

INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
VALUES ('FTO_CLIENTE', '00');

-- DataServices: SELECT Parametro_Sistema with 'FTO_CLIENTE'

UPDATE Parametro_Sistema SET Ps_Valor = '000'
WHERE Ps_Nombre = 'FTO_CLIENTE';

-- DataServices: SELECT Parametro_Sistema with 'FTO_CLIENTE'

DELETE FROM Parametro_Sistema
WHERE Ps_Nombre = 'FTO_CLIENTE';

-- ---- the server

UPDATE Servidor_Suite SET Sv_Servidor_Id = 'NORTE', Sv_Replica = 'SI'
WHERE Sv_Llave = 1;

SELECT Sv_Servidor_Id, Sv_Replica
FROM Servidor_Suite
WHERE Sv_Llave = 1;

-- ---- what is posted by itself

SELECT Ct_Codigo, Ct_Automatica
FROM Configuracion_Contable
ORDER BY Ct_Codigo;

-- SELECT Configuracion_Contable (2)
SELECT Ct_Codigo
FROM Configuracion_Contable
WHERE Ct_Codigo = 'CHEQUE';

UPDATE Configuracion_Contable SET Ct_Automatica = 'SI'
WHERE Ct_Codigo = 'CHEQUE';

-- again SELECT Configuracion_Contable (2) with 'GASTO_REGISTRO' for 'CHEQUE'

INSERT INTO Configuracion_Contable (Ct_Codigo)
VALUES ('GASTO_REGISTRO');

-- again UPDATE Configuracion_Contable with 'GASTO_REGISTRO' for 'CHEQUE'

-- ---- a period is closed, and one begins

SELECT *
FROM Periodo_Operativo
ORDER BY Po_Modulo, Po_Ejercicio, Po_Mes;

-- DataServices: SELECT Periodo_Operativo with 'FINANZAS', 2024, 3

UPDATE Periodo_Operativo SET Po_Estado = 'CE'
WHERE Po_Modulo = 'FINANZAS' AND Po_Ejercicio = 2024 AND Po_Mes = 3;

-- DataServices: SELECT Periodo_Operativo with 'FINANZAS', 2028, 1

INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado)
VALUES ('FINANZAS', 2028, 1, 'AB');

-- ---- the series of folios

SELECT *
FROM Folio_Serie
ORDER BY Fs_Codigo, Fs_Sucursal;

-- SELECT Folio_Serie (2)
SELECT *
FROM Folio_Serie
WHERE Fs_Codigo = 'CHEQUE' AND Fs_Sucursal = 'MTY';

-- DataServices: INSERT Folio_Serie with 'CHEQUE', 'MTY', 0, 'SI', 'CHEQUE', 'MTY'

UPDATE Folio_Serie SET Fs_Ultimo = 499 OUTPUT inserted.Fs_Ultimo
WHERE Fs_Codigo = 'CHEQUE' AND Fs_Sucursal = 'MTY' AND Fs_Ultimo < 500;

-- DataServices: INSERT Folio_Serie with 'CHEQUE', 'MTY', 0, 'SI', 'CHEQUE', 'MTY'

-- UPDATE Folio_Serie (2)
UPDATE Folio_Serie SET Fs_Abierta = 'NO'
WHERE Fs_Codigo = 'CHEQUE' AND Fs_Sucursal = 'MTY';

-- ---- a document is posted by hand, and not any more

INSERT INTO Documento_Contabilizado (Dt_Documento, Dt_Tabla, Oper_Alta, Fecha_Alta)
SELECT 'CH-MTY-00000001', 'CHEQUE', 'CONTA1', GETDATE()
WHERE NOT EXISTS (SELECT Dt_Documento FROM Documento_Contabilizado WHERE Dt_Documento = 'CH-MTY-00000001' AND Dt_Tabla
= 'CHEQUE');

-- DataServices: SELECT Documento_Contabilizado with 'CH-MTY-00000001', 'CHEQUE'

DELETE FROM Documento_Contabilizado
WHERE Dt_Documento = 'CH-MTY-00000001' AND Dt_Tabla = 'CHEQUE';

-- ---- a voucher is closed

UPDATE Poliza SET Es_Cve_Estado = 'CE' OUTPUT inserted.Pz_Folio
WHERE Pz_Folio = 'PZ-00000001' AND Es_Cve_Estado <> 'CA';
