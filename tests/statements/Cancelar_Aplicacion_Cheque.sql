-- Cancelar_Aplicacion_Cheque

-- ---- of a supplier

SELECT
   Cheque_x_Aplicar.*,
   Tipo_Cheque.Tc_Solicitar,
   Tipo_Cheque.Tc_Proveedor_Pago
FROM Cheque
   INNER JOIN Cheque_x_Aplicar ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio
   INNER JOIN Tipo_Cheque ON Cheque.Tc_Cve_Tipo_Cheque = Tipo_Cheque.Tc_Cve_Tipo_Cheque
WHERE Cheque.Ch_Folio = 'CH-MTY-00000001'
ORDER BY Cheque_x_Aplicar.Cxa_ID ;

SELECT
   Cxp_Folio,
   Pc_ID
FROM Pago_Cxp
WHERE
   Pc_Tabla = 'CHEQUE' AND
   Cxp_Folio = 'CXP-MTY-00000001' AND
   Pc_Documento = 'CH-MTY-00000001' AND
   Es_Cve_Estado <> 'CA'
ORDER BY Pc_ID ;

-- again SELECT Pago_Cxp with 'CXP-MTY-00000002' for 'CXP-MTY-00000001'

UPDATE Cheque_x_Aplicar SET
   Es_Cve_Estado = 'AC',
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Ch_Folio = 'CH-MTY-00000001';

-- Afectar_Cheque_Presupuesto: UPDATE Cheque with 'AC', 'CAJA1', '2024-03-15 10:20:30', 'CH-MTY-00000001'

UPDATE Banco_Movimiento SET
   Es_Cve_Estado = 'TR',
   Bm_Fecha_Firme = Bm_Fecha,
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE
   Bm_Documento = 'CH-MTY-00000001' AND
   Bm_Tabla = 'CHEQUE' AND
   Es_Cve_Estado <> 'CA';

-- ---- of a customer

-- again SELECT Cheque

UPDATE Cuenta_x_Cobrar SET
   Cxc_Tabla = 'CHEQUE-CA:' + Cxc_Folio
WHERE
   Cxc_Tabla = 'CHEQUE' AND
   Cxc_Documento = 'CH-MTY-00000001';

-- again UPDATE Cheque_x_Aplicar
-- Afectar_Cheque_Presupuesto: UPDATE Cheque with 'AC', 'CAJA1', '2024-03-15 10:20:30', 'CH-MTY-00000001'
-- again UPDATE Banco_Movimiento

-- ---- of a supplier advance

-- again SELECT Cheque

-- SELECT Pago_Cxp (2)
SELECT *
FROM Pago_Cxp
WHERE
   Cxp_Folio IN (SELECT Cxp_Folio FROM Cuenta_x_Pagar
                 WHERE CxP_Tabla = 'ANTICIPO_CXP' AND Cxp_Documento = 'CXP-MTY-00000004') AND
   Es_Cve_Estado <> 'CA' ;

UPDATE Cuenta_X_Pagar SET
   Cxp_Tabla = 'ANTICIPO_CXP-CA:' + Cxp_Folio
WHERE
   CxP_Tabla = 'ANTICIPO_CXP' AND
   Cxp_Documento = 'CXP-MTY-00000004';

-- again UPDATE Cheque_x_Aplicar
-- Afectar_Cheque_Presupuesto: UPDATE Cheque with 'AC', 'CAJA1', '2024-03-15 10:20:30', 'CH-MTY-00000001'
-- again UPDATE Banco_Movimiento

-- ---- of an expense to verify

-- again SELECT Cheque

SELECT Pc_Tabla, Pc_Documento
FROM Pago_CXC
WHERE
   Cxc_Folio IN (SELECT Cxc_Folio FROM Cuenta_X_Cobrar
      WHERE Cxc_Tabla = 'GASTO_X_COMPROBAR' AND Cxc_Documento IN
         (SELECT Gc_Folio FROM Gasto_x_Comprobar WHERE Gc_Tabla = 'CHEQUE' AND Gc_Documento = 'CH-MTY-00000001')) AND
   Pc_Tabla = 'ANTICIPO_CXC' AND
   Pago_CXC.Es_Cve_Estado <> 'CA' ;

SELECT *
FROM Pago_Cxc
WHERE
   Es_Cve_Estado <> 'CA' AND
   Cxc_Folio IN (SELECT Cxc_Folio FROM Cuenta_X_Cobrar
      WHERE Cxc_Tabla = 'ANTICIPO_CXC' AND Cxc_Documento = 'AN-MTY-00000001') ;

UPDATE Anticipo_Cxc SET
   Es_Cve_Estado = 'AC',
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE An_Folio = 'AN-MTY-00000001';

-- Aplicar_Cheque: UPDATE Gasto_x_Comprobar_Documento with 'CA', 'CHEQUE', 'CH-MTY-00000001', 'AN-MTY-00000001'
-- again SELECT Pago_Cxc with 'AN-MTY-00000002' for 'AN-MTY-00000001'
-- again UPDATE Anticipo_Cxc with 'AN-MTY-00000002' for 'AN-MTY-00000001'
-- Aplicar_Cheque: UPDATE Gasto_x_Comprobar_Documento with 'CA', 'CHEQUE', 'CH-MTY-00000001', 'AN-MTY-00000002'
-- again UPDATE Cuenta_x_Cobrar with 'GASTO_X_COMPROBAR-CA:' for 'CHEQUE-CA:', 'GASTO_X_COMPROBAR' for 'CHEQUE',
--    'GC-MTY-00000001' for 'CH-MTY-00000001'
-- again UPDATE Cheque_x_Aplicar
-- Afectar_Cheque_Presupuesto: UPDATE Cheque with 'AC', 'CAJA1', '2024-03-15 10:20:30', 'CH-MTY-00000001'
-- again UPDATE Banco_Movimiento

-- ---- of an expense to which no advance was applied

-- again SELECT Cheque
-- again SELECT Pago_CXC

UPDATE Gasto_x_Comprobar_Documento SET
   Es_Cve_Estado = 'CA'
WHERE
   Gc_Tabla = 'CHEQUE' AND
   Gc_Documento = 'CH-MTY-00000001';

-- again UPDATE Cuenta_x_Cobrar with 'GASTO_X_COMPROBAR-CA:' for 'CHEQUE-CA:', 'GASTO_X_COMPROBAR' for 'CHEQUE',
--    'GC-MTY-00000001' for 'CH-MTY-00000001'
-- again UPDATE Cheque_x_Aplicar
-- Afectar_Cheque_Presupuesto: UPDATE Cheque with 'AC', 'CAJA1', '2024-03-15 10:20:30', 'CH-MTY-00000001'
-- again UPDATE Banco_Movimiento
