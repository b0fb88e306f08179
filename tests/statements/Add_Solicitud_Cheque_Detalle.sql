-- Add_Solicitud_Cheque_Detalle

-- ---- requests need no authorization

INSERT INTO Solicitud_Cheque_Detalle(
  Sch_Folio,
   Scd_Id,
   Scd_Tabla,
   Scd_Documento,
   Scd_Importe,
   Mn_Cve_Moneda,
   Scd_Tipo_Cambio,
   Oper_Alta,
   Fecha_Alta,
   Oper_Ult_Modif,
   Fecha_Ult_Modif,
   Es_Cve_Estado)
VALUES('SC-MTY-00000001', '0001', 'CXP', 'CXP-MTY-00000001', 100.25, 'USD', 18.5, 'CAJA1', '2024-03-15 10:20:30',
'CAJA1', '2024-03-15 10:20:30', 'AC');

-- ---- they do

-- again INSERT Solicitud_Cheque_Detalle with 'PXA' for 'AC'
