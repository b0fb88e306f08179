-- DataServices

-- ---- LookupValue

SELECT Cl_Dias_Credito
FROM Cliente
WHERE Cl_Cve_Cliente = 'DE01' AND Es_Cve_Estado <> 'BA';

-- ---- LookupValue, with a condition

-- SELECT Cliente (2)
SELECT Cl_Dias_Credito
FROM Cliente
WHERE Cl_Cve_Cliente = 'DE01' AND Es_Cve_Estado <> 'BA' AND (Tc_Cve_Tipo_Cliente = 'DE');

-- ---- LookupValue, in a table without states

SELECT Ps_Valor
FROM Parametro_Sistema
WHERE Ps_Nombre = 'FIN_MONEDA_LOCAL';

-- ---- LookupValue, of a row that operations ask for more than once

SELECT Bt_Descripcion, Bt_Tipo
FROM Banco_Tipo_Movimiento
WHERE Bt_Cve_Banco_Tipo_Movimiento = 'DEP' AND Es_Cve_Estado <> 'BA';

-- ---- GetServerDate, while none is fixed

SELECT GETDATE() AS Ahora;

-- ---- GetNextFolio, of a series that begins

UPDATE Folio_Serie SET Fs_Ultimo = Fs_Ultimo + 1 OUTPUT inserted.Fs_Ultimo
WHERE Fs_Codigo = 'RECIBO_PAGO' AND Fs_Sucursal = 'MTY' AND Fs_Abierta = 'SI';

INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo, Fs_Abierta)
SELECT 'RECIBO_PAGO', 'MTY', 0, 'SI'
WHERE NOT EXISTS (SELECT Fs_Codigo FROM Folio_Serie WHERE Fs_Codigo = 'RECIBO_PAGO' AND Fs_Sucursal = 'MTY');

-- again UPDATE Folio_Serie

-- ---- GetNextFolio, of a series in use

-- again UPDATE Folio_Serie

-- ---- GetNextFolio, of a series that cannot be begun: another session may have done it

-- again UPDATE Folio_Serie
-- again INSERT Folio_Serie

SELECT Fs_Codigo
FROM Folio_Serie
WHERE Fs_Codigo = 'RECIBO_PAGO' AND Fs_Sucursal = 'MTY';

-- ---- IsOperatingPeriodOpen

SELECT Po_Estado
FROM Periodo_Operativo
WHERE Po_Modulo = 'FINANZAS' AND Po_Ejercicio = 2024 AND Po_Mes = 3;

-- ---- RegisterDocument, for the first time

UPDATE Documento_Registrado SET Dr_Veces = Dr_Veces + 1, Fecha_Ult_Modif = '2024-03-15 10:20:30' OUTPUT
inserted.Dr_Veces
WHERE Dr_Documento = 'RP-MTY-00000001' AND Dr_Codigo = 'RECIBO_PAGO';

INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta,
Fecha_Ult_Modif) OUTPUT inserted.Dr_Veces
SELECT 'RP-MTY-00000001', 'RECIBO_PAGO', 1, 'CAJA1', '2024-03-15 10:20:30', '2024-03-15 10:20:30'
WHERE NOT EXISTS (SELECT Dr_Veces FROM Documento_Registrado WHERE Dr_Documento = 'RP-MTY-00000001' AND Dr_Codigo =
'RECIBO_PAGO');

-- ---- RegisterDocument, again

-- again UPDATE Documento_Registrado

-- ---- IsDocumentPosted

SELECT Dt_Documento
FROM Documento_Contabilizado
WHERE Dt_Documento = 'RP-MTY-00000001' AND Dt_Tabla = 'RECIBO_PAGO';
