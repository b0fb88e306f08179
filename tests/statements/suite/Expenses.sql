-- Expenses

-- ---- register_expense_advance

-- AccountsReceivableService: SELECT Cliente with 'DE01', 'BA'
-- DataServices: UPDATE Folio_Serie with 1, 'ANTICIPO_CXC', 'MTY', 'SI'
-- AccountsReceivableService: SELECT Cliente (2) with 'DE01', 'BA', 'MXN', 'BA'
-- DataServices: UPDATE Folio_Serie with 1, 'CUENTA_X_COBRAR', 'MTY', 'SI'
-- AccountsReceivableService: INSERT Cuenta_x_Cobrar with 'CXC-MTY-00000005', 'ANTICIPO_CXC', 'AN-MTY-00000003',
--    '2024-03-15', '2024-03-15', 'MTY', 'DE01', 'MXN', 1, -80, -80, -80, 0, -80, '', '', 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'
-- AccountsReceivableService: INSERT Anticipo_Cxc with 'AN-MTY-00000003', 'GASTO_REGISTRO', 'GR-33', '2024-03-15',
--    'MTY', 'DE01', 'MXN', 1, 80, '', '', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'AC'

-- ---- link_advance_to_check

SELECT COUNT(*) AS Lineas
FROM Gasto_x_Comprobar_Documento
WHERE Gc_Documento = 'CH-MTY-00000001' AND Gc_Tabla = 'CHEQUE';

INSERT INTO Gasto_x_Comprobar_Documento (Gc_Documento, Gc_Tabla, Gcd_ID, Cxc_Folio, Cxc_Importe, Cxc_Tipo_Cambio,
Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Es_Cve_Estado)
VALUES ('CH-MTY-00000001', 'CHEQUE', '0001', 'AN-MTY-00000002', 250, 1, 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
'2024-03-15 10:20:30', 'AC');
