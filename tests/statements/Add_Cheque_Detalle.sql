-- Add_Cheque_Detalle

-- ---- the first line

SELECT Ch_Folio
FROM Cheque
WHERE
   Ch_Referencia = '1001' AND
   Bc_Cve_Banco_Cuenta = 'SRR-MXN' AND
   Ch_Transferencia = 'NO' AND
   Es_Cve_Estado <> 'CA' ;

INSERT INTO Cheque_x_Aplicar(
  Ch_Folio,
   Cxa_ID,
   Ch_Cheque,
   Cxp_Folio,
   Mn_Cve_Moneda,
   Cxa_Tipo_Cambio,
   Cxa_Importe,
   Oper_Alta,
   Fecha_Alta,
   Oper_Ult_Modif,
   Fecha_Ult_Modif)
VALUES('CH-MTY-00000001', '0001', '1001', 'CXP-MTY-00000001', 'USD', 19.25, 250.5, 'CAJA1', '2024-03-15 10:20:30',
'CAJA1', '2024-03-15 10:20:30');

-- ---- another line

-- again INSERT Cheque_x_Aplicar with '0003' for '0001', 'MXN' for 'USD', 1 for 19.25, 20 for 250.5
