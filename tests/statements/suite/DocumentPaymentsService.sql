-- DocumentPaymentsService

-- ---- CancelDocumentPayments

SELECT Cxc_Folio, Pc_ID
FROM Pago_Cxc
WHERE Pc_Documento = 'CH-MTY-00000001' AND Pc_Tabla = 'CHEQUE' AND Es_Cve_Estado <> 'CA'
ORDER BY Cxc_Folio, Pc_ID;

-- AccountsReceivableService: SELECT Cuenta_x_Cobrar (3) with '0001', 'CXC-MTY-00000001:0001', 'Pago_Cxc',
--    'CUENTAS_X_COBRAR', 2024, 3, 'CXC-MTY-00000001'
-- AccountsReceivableService: UPDATE Pago_Cxc with 'CA', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
--    '2024-03-15 10:20:30', 'CXC-MTY-00000001', '0001'
-- AccountsReceivableService: UPDATE Cuenta_x_Cobrar with 0, 'CXC-MTY-00000001', 'CA', 'SI', 0, 'CXC-MTY-00000001',
--    'CA', 'SI', 'CAJA1', '2024-03-15 10:20:30', 'CXC-MTY-00000001'
