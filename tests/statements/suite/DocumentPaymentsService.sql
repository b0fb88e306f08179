-- DocumentPaymentsService

-- ---- CancelDocumentPayments

SELECT Cxc_Folio, Pc_ID
FROM Pago_Cxc
WHERE Pc_Documento = 'CH-MTY-00000001' AND Pc_Tabla = 'CHEQUE' AND Es_Cve_Estado <> 'CA'
ORDER BY Cxc_Folio, Pc_ID;

-- AccountsReceivableService: SELECT Pago_Cxc (3) with 'CXC-MTY-00000001', '0001'
-- AccountsReceivableService: SELECT Cuenta_x_Cobrar (2) with 'CXC-MTY-00000001'
-- AccountsReceivableService: SELECT Pago_Cxc (4) with 'CXC-MTY-00000001', '0001'
-- DataServices: SELECT Documento_Contabilizado with 'CXC-MTY-00000001:0001', 'Pago_Cxc'
-- DataServices: SELECT Periodo_Operativo with 'CUENTAS_X_COBRAR', 2024, 3
-- AccountsReceivableService: UPDATE Pago_Cxc with 'CA', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
--    '2024-03-15 10:20:30', 'CXC-MTY-00000001', '0001'
-- AccountsReceivableService: UPDATE Cuenta_x_Cobrar with 0, 'CXC-MTY-00000001', 'CA', 'SI', 0, 'CXC-MTY-00000001',
--    'CA', 'SI', 'CAJA1', '2024-03-15 10:20:30', 'CXC-MTY-00000001'
-- AccountsReceivableService: SELECT Cuenta_x_Cobrar (2) with 'CXC-MTY-00000001'
