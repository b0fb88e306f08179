-- Aplicar_Cheque

-- ---- of a supplier, two lines

-- Afectar_Cheque_Presupuesto: SELECT Cheque with 'CH-MTY-00000001'

SELECT
   Cheque_x_Aplicar.Ch_Folio,
   Cheque_x_Aplicar.Cxa_ID,
   Cheque_x_Aplicar.Ch_Cheque,
   Cheque_x_Aplicar.Cxp_Folio,
   Cheque_x_Aplicar.Cxa_Importe,
   Cheque_x_Aplicar.Mn_Cve_Moneda as Cxa_Moneda,
   Cheque_x_Aplicar.Cxa_Tipo_Cambio,
   Cheque.Ch_Fecha,
   Cheque.Tc_Cve_Tipo_Cheque,
   Cheque.Ch_Solicitar_Valor,
   Tipo_Cheque.Tc_Solicitar,
   Tipo_Cheque.Tc_Proveedor_Pago,
   Cheque.Ch_Transferencia,
   Cheque.Ch_Tipo_Cambio,
   Cheque.Ch_Documento,
   Cheque.Sc_Cve_Sucursal,
   Cheque.Ch_Concepto,
   Cheque.Ch_Referencia,
   Cheque.Ch_Importe,
   Banco_Cuenta.Mn_Cve_Moneda,
   Banco_Cuenta.Bc_Cve_Banco_Cuenta,
   Banco_Cuenta.Bc_Cuenta,
   Banco.Bn_Cve_Banco,
   Banco.Bn_Descripcion
FROM Cheque_x_Aplicar
   INNER JOIN Cheque ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta = Cheque.Bc_Cve_Banco_Cuenta
   INNER JOIN Banco ON Banco.Bn_Cve_Banco = Banco_Cuenta.Bn_Cve_Banco
WHERE
   Cheque_x_Aplicar.Ch_Folio = 'CH-MTY-00000001' AND
   Cheque_x_Aplicar.Es_Cve_Estado = 'AC'
ORDER BY Cheque_x_Aplicar.Cxa_ID ;

UPDATE Cheque_x_Aplicar SET
   Es_Cve_Estado = 'AP',
   Cxa_Fecha_Aplicacion = '2024-03-20',
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE
   Ch_Folio = 'CH-MTY-00000001' AND
   Cxa_ID = '0001' AND
   Es_Cve_Estado <> 'CA';

-- again UPDATE Cheque_x_Aplicar with '0002' for '0001'

UPDATE Cheque SET
   Es_Cve_Estado = 'AP',
   Ch_Aplicar = 'SI',
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE
   Ch_Folio = 'CH-MTY-00000001' AND
   Ch_Folio NOT IN (SELECT Cheque.Ch_Folio
                    FROM Cheque
                       INNER JOIN Cheque_x_Aplicar ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio
                    WHERE Cheque_x_Aplicar.Es_Cve_Estado = 'AC' AND Cheque.Ch_Folio = 'CH-MTY-00000001');

UPDATE Banco_Movimiento SET
   Es_Cve_Estado = 'TR',
   Bm_Fecha_Firme = '2024-03-20',
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE
   Bm_Documento = 'CH-MTY-00000001' AND
   Bm_Tabla = 'CHEQUE' AND
   Es_Cve_Estado <> 'CA';

-- ---- the same, firm

-- Afectar_Cheque_Presupuesto: SELECT Cheque with 'CH-MTY-00000001'
-- again SELECT Cheque_x_Aplicar
-- again UPDATE Cheque_x_Aplicar
-- again UPDATE Cheque_x_Aplicar with '0002' for '0001'

-- UPDATE Cheque (2)
UPDATE Cheque SET
   Es_Cve_Estado = 'AP',
   Ch_Aplicar = 'SI',
   Ch_Fecha_Firme = '2024-03-20',
   Ch_Firme = 'SI',
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE
   Ch_Folio = 'CH-MTY-00000001' AND
   Ch_Folio NOT IN (SELECT Cheque.Ch_Folio
                    FROM Cheque
                       INNER JOIN Cheque_x_Aplicar ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio
                    WHERE Cheque_x_Aplicar.Es_Cve_Estado = 'AC' AND Cheque.Ch_Folio = 'CH-MTY-00000001');

-- again UPDATE Banco_Movimiento with 'FI' for 'TR'

-- ---- of a customer

-- Afectar_Cheque_Presupuesto: SELECT Cheque with 'CH-MTY-00000001'
-- again SELECT Cheque_x_Aplicar
-- again UPDATE Cheque_x_Aplicar
-- again UPDATE Cheque
-- again UPDATE Banco_Movimiento

-- ---- of a supplier advance: the line gets its payable

-- Afectar_Cheque_Presupuesto: SELECT Cheque with 'CH-MTY-00000001'
-- again SELECT Cheque_x_Aplicar

-- UPDATE Cheque_x_Aplicar (2)
UPDATE Cheque_x_Aplicar SET
   Cxp_Folio = 'CXP-MTY-00000004',
   Es_Cve_Estado = 'AP',
   Cxa_Fecha_Aplicacion = '2024-03-20',
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE
   Ch_Folio = 'CH-MTY-00000001' AND
   Cxa_ID = '0001' AND
   Es_Cve_Estado <> 'CA';

-- again UPDATE Cheque
-- again UPDATE Banco_Movimiento

-- ---- of an expense to verify, with an advance used up and one used in part

-- Afectar_Cheque_Presupuesto: SELECT Cheque with 'CH-MTY-00000001'
-- again SELECT Cheque_x_Aplicar

SELECT
   Cxc_Folio,
   Cxc_Precio_Neto_Importe,
   Mn_Cve_Moneda,
   Cxc_Tipo_Cambio
FROM Cuenta_X_Cobrar
WHERE
   Cxc_Tabla = 'GASTO_X_COMPROBAR' AND
   Cxc_Documento IN (SELECT Gc_Folio FROM Gasto_x_Comprobar
      WHERE Gc_Tabla = 'CHEQUE' AND Gc_Documento = 'CH-MTY-00000001') ;

SELECT
   Anticipo_Cxc.*,
   Cuenta_X_Cobrar.Cxc_Precio_Neto_Importe,
   Cuenta_X_Cobrar.Cxc_Precio_Neto_Saldo,
   Cuenta_X_Cobrar.Cxc_Precio_Neto_Pago,
   Gasto_x_Comprobar_Documento.Gcd_ID,
   Gasto_x_Comprobar_Documento.Cxc_Tipo_Cambio,
   Gasto_x_Comprobar_Documento.Cxc_Importe
FROM Anticipo_Cxc
   INNER JOIN Cuenta_X_Cobrar ON Cuenta_X_Cobrar.Cxc_Tabla = 'ANTICIPO_CXC' AND
      Cuenta_X_Cobrar.Cxc_Documento = Anticipo_Cxc.An_Folio
   INNER JOIN Gasto_x_Comprobar_Documento ON Gasto_x_Comprobar_Documento.Gc_Tabla = 'CHEQUE' AND
      Gasto_x_Comprobar_Documento.Gc_Documento = 'CH-MTY-00000001' AND
      Gasto_x_Comprobar_Documento.Cxc_Folio = Anticipo_Cxc.An_Folio
WHERE
   Anticipo_Cxc.Es_Cve_Estado = 'AC' AND
   Anticipo_Cxc.An_Tabla = 'GASTO_REGISTRO' AND
   Cuenta_X_Cobrar.Es_Cve_Estado = 'AC'
ORDER BY Anticipo_Cxc.An_Folio ASC ;

-- SELECT Cuenta_X_Cobrar (2)
SELECT Cuenta_X_Cobrar.Cxc_Folio, IsNull(MAX(Pago_Cxc.Pc_ID), '0000') AS Pc_ID
FROM Cuenta_X_Cobrar
   LEFT JOIN Pago_Cxc ON Cuenta_X_Cobrar.Cxc_Folio = Pago_Cxc.Cxc_Folio
WHERE
   Cuenta_X_Cobrar.Cxc_Tabla = 'ANTICIPO_CXC' AND
   Cuenta_X_Cobrar.Cxc_Documento = 'AN-MTY-00000001'
GROUP BY Cuenta_X_Cobrar.Cxc_Folio ;

SELECT Cxc_Precio_Neto_Saldo
FROM Cuenta_x_Cobrar
WHERE Cxc_Folio = 'CXC-MTY-00000005' ;

SELECT ISNULL(SUM(Pc_Importe * Pc_Tipo_Cambio),0) AS Pagos
FROM Pago_Cxc
WHERE
   Pc_Tabla = 'ANTICIPO_CXC' AND
   Pc_Documento = 'AN-MTY-00000001' AND
   Pc_Referencia = 'CXC-MTY-00000003:0001' AND
   Fp_Cve_Forma_Pago <> 'DA' ;

-- again SELECT Cuenta_x_Cobrar with 'CXC-MTY-00000003' for 'CXC-MTY-00000005'

-- SELECT Cuenta_x_Cobrar (2)
SELECT Cxc_Precio_Neto_Pago
FROM Cuenta_x_Cobrar
WHERE
   Cxc_Tabla = 'ANTICIPO_CXC' AND
   Cxc_Documento = 'AN-MTY-00000001' ;

UPDATE Gasto_x_Comprobar_Documento SET
   Es_Cve_Estado = 'AP'
WHERE
   Gc_Tabla = 'CHEQUE' AND
   Gc_Documento = 'CH-MTY-00000001' AND
   Cxc_Folio = 'AN-MTY-00000001';

-- again SELECT Cuenta_X_Cobrar (2) with 'AN-MTY-00000002' for 'AN-MTY-00000001'
-- again SELECT Cuenta_x_Cobrar
-- again SELECT Pago_Cxc with 'AN-MTY-00000002' for 'AN-MTY-00000001',
--    'CXC-MTY-00000004:0001' for 'CXC-MTY-00000003:0001'
-- again SELECT Cuenta_x_Cobrar with 'CXC-MTY-00000004' for 'CXC-MTY-00000005'
-- again SELECT Cuenta_x_Cobrar (2) with 'AN-MTY-00000002' for 'AN-MTY-00000001'

UPDATE Anticipo_Cxc SET Es_Cve_Estado = 'AP'
WHERE An_Folio = 'AN-MTY-00000002';

-- again UPDATE Gasto_x_Comprobar_Documento with 'AN-MTY-00000002' for 'AN-MTY-00000001'
-- again UPDATE Cheque_x_Aplicar
-- again UPDATE Cheque
-- again UPDATE Banco_Movimiento

-- ---- movements are posted by themselves

-- Afectar_Cheque_Presupuesto: SELECT Cheque with 'CH-MTY-00000001'
-- again SELECT Cheque_x_Aplicar
-- again UPDATE Cheque_x_Aplicar
-- again UPDATE Cheque_x_Aplicar with '0002' for '0001'
-- again UPDATE Cheque
-- again UPDATE Banco_Movimiento

SELECT Banco_Movimiento.Bm_Folio, Empresa.Em_Cve_Empresa
FROM Banco_Movimiento
   INNER JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta= Banco_Movimiento.Bc_Cve_Banco_Cuenta
   INNER JOIN Empresa ON Empresa.Em_Cve_Empresa = Banco_Cuenta.Em_Cve_Empresa
WHERE
   (Bm_Folio = ''
  OR (Bm_Documento = 'CH-MTY-00000001' AND Bm_Tabla = 'CHEQUE' ) ) AND
   Banco_Movimiento.Es_Cve_Estado <> 'CA' AND
   Empresa.Es_Cve_Estado <> 'BA' ;
