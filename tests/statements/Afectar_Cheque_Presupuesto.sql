-- Afectar_Cheque_Presupuesto

-- ---- a supplier advance, with a budget of the supplier

SELECT *
FROM Cheque
WHERE Ch_Folio = 'CH-MTY-00000001' ;

-- SELECT Cheque (2)
SELECT
   Proveedor.Pv_Cve_Proveedor AS Proveedor, Grupo_Proveedor.Gp_Cve_Grupo_Proveedor AS Grupo_Proveedor,
   Sucursal.Sc_Cve_Sucursal AS Sucursal,
   Sucursal.Em_Cve_Empresa AS Empresa,
   Tipo_Cheque.Tc_Solicitar AS Tipo,
   Cheque.Ch_Fecha AS Fecha,
   Cheque.Ch_Importe * Cheque.Ch_Tipo_Cambio AS Importe
FROM Cheque
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal
   INNER JOIN Proveedor ON Proveedor.Pv_Cve_Proveedor = Cheque.Ch_Solicitar_Valor
   INNER JOIN Grupo_Proveedor ON Grupo_Proveedor.Gp_Cve_Grupo_Proveedor = Proveedor.Gp_Cve_Grupo_Proveedor
WHERE
   Cheque.Ch_Folio = 'CH-MTY-00000001' AND
   Cheque.Es_Cve_Estado NOT IN ('CA','AP') ;

SELECT App_03 AS Importe
FROM Anticipo_Proveedor_Presupuesto
WHERE
   App_Tipo = 'PV' AND
   App_Valor = 'PV01' AND
   App_Periodo = 2024 ;

-- SELECT Cheque (3)
SELECT SUM(Cheque.Ch_Importe * Cheque.Ch_Tipo_Cambio) AS Importe
FROM Cheque
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal
   INNER JOIN Proveedor ON Proveedor.Pv_Cve_Proveedor = Cheque.Ch_Solicitar_Valor
   INNER JOIN Grupo_Proveedor ON Grupo_Proveedor.Gp_Cve_Grupo_Proveedor = Proveedor.Gp_Cve_Grupo_Proveedor
WHERE
   Proveedor.Pv_Cve_Proveedor = 'PV01' AND
   Tipo_Cheque.Tc_Solicitar = '05' AND
   MONTH(Cheque.Ch_Fecha) = 3 AND
   YEAR(Cheque.Ch_Fecha) = 2024 AND
   Cheque.Es_Cve_Estado NOT IN ('CA','PXA') ;

-- ---- a supplier advance, with a budget of the supplier's group

-- again SELECT Cheque
-- again SELECT Cheque (2)
-- again SELECT Anticipo_Proveedor_Presupuesto
-- again SELECT Anticipo_Proveedor_Presupuesto with 'GP' for 'PV', 'MERC' for 'PV01'

-- SELECT Cheque (4)
SELECT SUM(Cheque.Ch_Importe * Cheque.Ch_Tipo_Cambio) AS Importe
FROM Cheque
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal
   INNER JOIN Proveedor ON Proveedor.Pv_Cve_Proveedor = Cheque.Ch_Solicitar_Valor
   INNER JOIN Grupo_Proveedor ON Grupo_Proveedor.Gp_Cve_Grupo_Proveedor = Proveedor.Gp_Cve_Grupo_Proveedor
WHERE
   Grupo_Proveedor.Gp_Cve_Grupo_Proveedor = 'MERC' AND
   Tipo_Cheque.Tc_Solicitar = '05' AND
   MONTH(Cheque.Ch_Fecha) = 3 AND
   YEAR(Cheque.Ch_Fecha) = 2024 AND
   Cheque.Es_Cve_Estado NOT IN ('CA','PXA') ;

-- ---- a supplier advance, with a budget of the branch

-- again SELECT Cheque
-- again SELECT Cheque (2)
-- again SELECT Anticipo_Proveedor_Presupuesto
-- again SELECT Anticipo_Proveedor_Presupuesto with 'GP' for 'PV', 'MERC' for 'PV01'
-- again SELECT Anticipo_Proveedor_Presupuesto with 'SC' for 'PV', 'MTY' for 'PV01'

-- SELECT Cheque (5)
SELECT SUM(Cheque.Ch_Importe * Cheque.Ch_Tipo_Cambio) AS Importe
FROM Cheque
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal
   INNER JOIN Proveedor ON Proveedor.Pv_Cve_Proveedor = Cheque.Ch_Solicitar_Valor
   INNER JOIN Grupo_Proveedor ON Grupo_Proveedor.Gp_Cve_Grupo_Proveedor = Proveedor.Gp_Cve_Grupo_Proveedor
WHERE
   Sucursal.Sc_Cve_Sucursal = 'MTY' AND
   Tipo_Cheque.Tc_Solicitar = '05' AND
   MONTH(Cheque.Ch_Fecha) = 3 AND
   YEAR(Cheque.Ch_Fecha) = 2024 AND
   Cheque.Es_Cve_Estado NOT IN ('CA','PXA') ;

-- ---- a supplier advance, with a budget of the company

-- again SELECT Cheque
-- again SELECT Cheque (2)
-- again SELECT Anticipo_Proveedor_Presupuesto
-- again SELECT Anticipo_Proveedor_Presupuesto with 'GP' for 'PV', 'MERC' for 'PV01'
-- again SELECT Anticipo_Proveedor_Presupuesto with 'SC' for 'PV', 'MTY' for 'PV01'
-- again SELECT Anticipo_Proveedor_Presupuesto with 'EM' for 'PV', 'EM01' for 'PV01'

-- SELECT Cheque (6)
SELECT SUM(Cheque.Ch_Importe * Cheque.Ch_Tipo_Cambio) AS Importe
FROM Cheque
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal
   INNER JOIN Proveedor ON Proveedor.Pv_Cve_Proveedor = Cheque.Ch_Solicitar_Valor
   INNER JOIN Grupo_Proveedor ON Grupo_Proveedor.Gp_Cve_Grupo_Proveedor = Proveedor.Gp_Cve_Grupo_Proveedor
WHERE
   Sucursal.Em_Cve_Empresa = 'EM01' AND
   Tipo_Cheque.Tc_Solicitar = '05' AND
   MONTH(Cheque.Ch_Fecha) = 3 AND
   YEAR(Cheque.Ch_Fecha) = 2024 AND
   Cheque.Es_Cve_Estado NOT IN ('CA','PXA') ;

-- ---- an expense to verify, with a budget of the debtor

-- again SELECT Cheque

-- SELECT Cheque (7)
SELECT
   Cliente.Cl_Cve_Cliente AS Deudor,
   Sucursal.Sc_Cve_Sucursal AS Sucursal,
   Sucursal.Em_Cve_Empresa AS Empresa,
   Tipo_Cheque.Tc_Solicitar AS Tipo,
   Cheque.Ch_Fecha AS Fecha,
   Cheque.Ch_Importe * Cheque.Ch_Tipo_Cambio AS Importe
FROM Cheque
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal
   INNER JOIN Cliente ON Cliente.Cl_Cve_Cliente = Cheque.Ch_Solicitar_Valor AND
      Cliente.Tc_Cve_Tipo_Cliente = 'DE'
WHERE
   Cheque.Ch_Folio = 'CH-MTY-00000001' AND
   Cheque.Es_Cve_Estado NOT IN ('CA','AP') ;

SELECT Gcp_03 AS Importe
FROM Gasto_x_Comprobar_Presupuesto
WHERE
   Gcp_Tipo = 'DE' AND
   Gcp_Valor = 'DE01' AND
   Gcp_Periodo = 2024 ;

-- SELECT Cheque (8)
SELECT SUM(Cheque.Ch_Importe * Cheque.Ch_Tipo_Cambio) AS Importe
FROM Cheque
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal
   INNER JOIN Cliente ON Cliente.Cl_Cve_Cliente = Cheque.Ch_Solicitar_Valor AND
      Cliente.Tc_Cve_Tipo_Cliente = 'DE'
WHERE
   Cliente.Cl_Cve_Cliente = 'DE01' AND
   Tipo_Cheque.Tc_Solicitar = '02' AND
   MONTH(Cheque.Ch_Fecha) = 3 AND
   YEAR(Cheque.Ch_Fecha) = 2024 AND
   Cheque.Es_Cve_Estado NOT IN ('CA','PXA') ;

-- ---- an expense to verify, with a budget of the branch

-- again SELECT Cheque
-- again SELECT Cheque (7)
-- again SELECT Gasto_x_Comprobar_Presupuesto
-- again SELECT Gasto_x_Comprobar_Presupuesto with 'SC' for 'DE', 'MTY' for 'DE01'

-- SELECT Cheque (9)
SELECT SUM(Cheque.Ch_Importe * Cheque.Ch_Tipo_Cambio) AS Importe
FROM Cheque
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal
   INNER JOIN Cliente ON Cliente.Cl_Cve_Cliente = Cheque.Ch_Solicitar_Valor AND
      Cliente.Tc_Cve_Tipo_Cliente = 'DE'
WHERE
   Sucursal.Sc_Cve_Sucursal = 'MTY' AND
   Tipo_Cheque.Tc_Solicitar = '02' AND
   MONTH(Cheque.Ch_Fecha) = 3 AND
   YEAR(Cheque.Ch_Fecha) = 2024 AND
   Cheque.Es_Cve_Estado NOT IN ('CA','PXA') ;

-- ---- an expense to verify, with a budget of the company

-- again SELECT Cheque
-- again SELECT Cheque (7)
-- again SELECT Gasto_x_Comprobar_Presupuesto
-- again SELECT Gasto_x_Comprobar_Presupuesto with 'SC' for 'DE', 'MTY' for 'DE01'
-- again SELECT Gasto_x_Comprobar_Presupuesto with 'EM' for 'DE', 'EM01' for 'DE01'

-- SELECT Cheque (10)
SELECT SUM(Cheque.Ch_Importe * Cheque.Ch_Tipo_Cambio) AS Importe
FROM Cheque
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal
   INNER JOIN Cliente ON Cliente.Cl_Cve_Cliente = Cheque.Ch_Solicitar_Valor AND
      Cliente.Tc_Cve_Tipo_Cliente = 'DE'
WHERE
   Sucursal.Em_Cve_Empresa = 'EM01' AND
   Tipo_Cheque.Tc_Solicitar = '02' AND
   MONTH(Cheque.Ch_Fecha) = 3 AND
   YEAR(Cheque.Ch_Fecha) = 2024 AND
   Cheque.Es_Cve_Estado NOT IN ('CA','PXA') ;

-- ---- a loan to a debtor, with a budget of the debtor

-- again SELECT Cheque
-- again SELECT Cheque (7)

SELECT Pdp_03 AS Importe
FROM Prestamo_Deudor_Presupuesto
WHERE
   Pdp_Tipo = 'DE' AND
   Pdp_Valor = 'DE01' AND
   Pdp_Periodo = 2024 ;

-- again SELECT Cheque (8) with '04' for '02'

-- ---- a loan to a debtor, with a budget of the branch

-- again SELECT Cheque
-- again SELECT Cheque (7)
-- again SELECT Prestamo_Deudor_Presupuesto
-- again SELECT Prestamo_Deudor_Presupuesto with 'SC' for 'DE', 'MTY' for 'DE01'
-- again SELECT Cheque (9) with '04' for '02'

-- ---- a loan to a debtor, with a budget of the company

-- again SELECT Cheque
-- again SELECT Cheque (7)
-- again SELECT Prestamo_Deudor_Presupuesto
-- again SELECT Prestamo_Deudor_Presupuesto with 'SC' for 'DE', 'MTY' for 'DE01'
-- again SELECT Prestamo_Deudor_Presupuesto with 'EM' for 'DE', 'EM01' for 'DE01'
-- again SELECT Cheque (10) with '04' for '02'

-- ---- a refund to a customer, with a budget of the customer

-- again SELECT Cheque

-- SELECT Cheque (11)
SELECT
   Cliente.Cl_Cve_Cliente AS Cliente,
   Sucursal.Sc_Cve_Sucursal AS Sucursal,
   Sucursal.Em_Cve_Empresa AS Empresa,
   Tipo_Cheque.Tc_Solicitar AS Tipo,
   Cheque.Ch_Fecha AS Fecha,
   Cheque.Ch_Importe * Cheque.Ch_Tipo_Cambio AS Importe
FROM Cheque
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal
   INNER JOIN Cliente ON Cliente.Cl_Cve_Cliente = Cheque.Ch_Solicitar_Valor AND
      Cliente.Tc_Cve_Tipo_Cliente = 'CL'
WHERE
   Cheque.Ch_Folio = 'CH-MTY-00000001' AND
   Cheque.Es_Cve_Estado NOT IN ('CA','AP') ;

SELECT Dcp_03 AS Importe
FROM Devolucion_Cliente_Presupuesto
WHERE
   Dcp_Tipo = 'CL' AND
   Dcp_Valor = 'CL01' AND
   Dcp_Periodo = 2024 ;

-- again SELECT Cheque (8) with 'CL' for 'DE', 'CL01' for 'DE01', '03' for '02'

-- ---- a refund to a customer, with a budget of the branch

-- again SELECT Cheque
-- again SELECT Cheque (11)
-- again SELECT Devolucion_Cliente_Presupuesto
-- again SELECT Devolucion_Cliente_Presupuesto with 'SC' for 'CL', 'MTY' for 'CL01'
-- again SELECT Cheque (9) with 'CL' for 'DE', '03' for '02'

-- ---- a refund to a customer, with a budget of the company

-- again SELECT Cheque
-- again SELECT Cheque (11)
-- again SELECT Devolucion_Cliente_Presupuesto
-- again SELECT Devolucion_Cliente_Presupuesto with 'SC' for 'CL', 'MTY' for 'CL01'
-- again SELECT Devolucion_Cliente_Presupuesto with 'EM' for 'CL', 'EM01' for 'CL01'
-- again SELECT Cheque (10) with 'CL' for 'DE', '03' for '02'

-- ---- a loan beyond its budget is held back

-- again SELECT Cheque
-- again SELECT Cheque (7)
-- again SELECT Prestamo_Deudor_Presupuesto
-- again SELECT Cheque (8) with '04' for '02'

UPDATE Cheque SET
   Es_Cve_Estado = 'PXA',
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Ch_Folio = 'CH-MTY-00000001';

-- ---- a loan without control

-- again SELECT Cheque
-- again SELECT Cheque (7)
