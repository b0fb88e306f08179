-- PedirDatosFormaPago

-- ---- a bank and an account that the customer has not used before

SELECT
   Forma_Pago.Fp_Descripcion,
   Forma_Pago.Fp_Requiere_Banco,
   Forma_Pago.Fp_Requiere_Referencia,
  Forma_Pago.Fp_Requiere_Cuenta,
   Forma_Pago.Fp_Metodo_Pago_SAT,
   Forma_Pago.Es_Cve_Estado
 FROM Forma_Pago
WHERE
   Forma_Pago.Fp_Cve_Forma_Pago = '03';

-- SELECT Forma_Pago (2)
SELECT Fp_Descripcion
FROM Forma_Pago
WHERE Fp_Cve_Forma_Pago = '03' AND Es_Cve_Estado <> 'BA';

SELECT COUNT(Dcb_Id) as Cuentas
FROM Documento_Cuenta_Bancaria
WHERE Dcb_Tabla = 'CLIENTE' AND
   Dcb_Documento = 'CL01' AND
   Dcb_Banco <> '' ;

SELECT Bn_Descripcion
FROM Banco
WHERE Bn_Cve_Banco = 'PUERTO' AND Es_Cve_Estado <> 'BA';

-- SELECT Documento_Cuenta_Bancaria (2)
SELECT Dcb_Cuenta
FROM Documento_Cuenta_Bancaria
WHERE Dcb_Tabla = 'CLIENTE' AND
   Dcb_Documento = 'CL01' AND
   Dcb_Banco = 'PUERTO' AND
   Es_Cve_Estado <> 'BA'
ORDER BY Dcb_ID ASC ;

-- SELECT Documento_Cuenta_Bancaria (3)
SELECT Dcb_Id
FROM Documento_Cuenta_Bancaria
WHERE
 Dcb_Tabla = 'CLIENTE' AND
 Dcb_Documento = 'CL01' AND
 Dcb_Banco = 'PUERTO' AND
 Dcb_Cuenta = '0200';

-- SELECT Documento_Cuenta_Bancaria (4)
SELECT MAX(CAST(Dcb_ID AS INT)) AS Dcb_ID
FROM Documento_Cuenta_Bancaria
WHERE Dcb_Tabla = 'CLIENTE' AND
   Dcb_Documento = 'CL01';

INSERT INTO Documento_Cuenta_Bancaria ( Dcb_Tabla,
 Dcb_Documento,
 Dcb_ID,
 Dcb_Banco,
 Dcb_Cuenta,
 Dcb_Sucursal,
 Dcb_CLABE,
 Dcb_Cve_Forma_Pago,
 Dcb_Forma_Pago,
 Dcb_Default,
 Oper_Alta,
 Fecha_Alta,
 Oper_Ult_Modif,
 Fecha_Ult_Modif,
 Es_Cve_Estado)
 Values ('CLIENTE', 'CL01', '0001', 'PUERTO', '0200', '', '', '03', 'Transferencia electrónica', 'NO','CAJA1',
'2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'AC') ;

-- ---- the bank from the full list

-- again SELECT Forma_Pago
-- again SELECT Forma_Pago (2)
-- again SELECT Documento_Cuenta_Bancaria

-- SELECT Banco (2)
SELECT
   Banco.Bn_Cve_Banco AS BANCO,
   Banco.Bn_Descripcion AS DESCRIPCION,
   Banco.Bn_Codigo AS CODIGO
FROM Banco
WHERE
   (Banco.Bn_Cve_Banco LIKE '%90%' OR
   Banco.Bn_Codigo LIKE '%90%' OR
   Banco.Bn_Descripcion LIKE '%90%') AND
   Banco.Es_Cve_Estado <> 'BA'
ORDER BY Banco.Bn_Cve_Banco;

-- again SELECT Banco
-- again SELECT Documento_Cuenta_Bancaria (3)
-- again SELECT Documento_Cuenta_Bancaria (4)
-- again INSERT Documento_Cuenta_Bancaria

-- ---- bank and account from the lists of the customer's own

-- again SELECT Forma_Pago
-- again SELECT Forma_Pago (2)
-- again SELECT Documento_Cuenta_Bancaria

-- SELECT Documento_Cuenta_Bancaria (5)
SELECT
   DISTINCT Documento_Cuenta_Bancaria.Dcb_Banco AS BANCO,
   Banco.Bn_Descripcion as DESCRIPCION, ''
FROM Documento_Cuenta_Bancaria
   INNER JOIN Banco ON Banco.Bn_Cve_Banco = Documento_Cuenta_Bancaria.Dcb_Banco
WHERE
   (Banco.Bn_Cve_Banco LIKE '%sie%' OR
   Banco.Bn_Codigo LIKE '%sie%' OR
   Banco.Bn_Descripcion LIKE '%sie%') AND
   (Documento_Cuenta_Bancaria.Dcb_Tabla = 'CLIENTE' AND
   Documento_Cuenta_Bancaria.Dcb_Documento = 'CL01' );

-- again SELECT Banco with 'SIERRA' for 'PUERTO'
-- again SELECT Documento_Cuenta_Bancaria (2) with 'SIERRA' for 'PUERTO'

-- SELECT Documento_Cuenta_Bancaria (6)
SELECT
   Dcb_Cuenta AS CUENTA,
   Dcb_ID AS ID,
   Dcb_CLABE AS CLABE,
   Banco.Bn_Codigo + ' - ' + Banco.Bn_Descripcion AS BANCO
FROM Documento_Cuenta_Bancaria
   INNER JOIN Banco ON Documento_Cuenta_Bancaria.Dcb_Banco = Banco.Bn_Cve_Banco
WHERE (Dcb_Tabla = 'CLIENTE' AND
   Dcb_Documento = 'CL01' AND
   Dcb_Banco = 'SIERRA' AND
   Documento_Cuenta_Bancaria.Es_Cve_Estado <> 'BA' ) AND
   (Dcb_Cuenta LIKE '%1%')
ORDER BY Dcb_ID ASC ;

-- again SELECT Documento_Cuenta_Bancaria (3) with 'SIERRA' for 'PUERTO', '0100' for '0200'

-- ---- the list of payment methods

-- again SELECT Forma_Pago
-- again SELECT Forma_Pago (2)
-- again SELECT Documento_Cuenta_Bancaria

-- SELECT Forma_Pago (3)
SELECT
   Forma_Pago.Fp_Cve_Forma_Pago AS FORMA_PAGO,
   Forma_Pago.Fp_Descripcion AS DESCRIPCION
FROM Forma_Pago
WHERE
   (Forma_Pago.Fp_Cve_Forma_Pago LIKE '%%' OR
   Forma_Pago.Fp_Descripcion LIKE '%%') AND
   Forma_Pago.Es_Cve_Estado <> 'BA'
ORDER BY Forma_Pago.Fp_Cve_Forma_Pago;

-- again SELECT Documento_Cuenta_Bancaria (3)
-- again SELECT Documento_Cuenta_Bancaria (4)
-- again INSERT Documento_Cuenta_Bancaria
