-- Add_Solicitud_Cheque

-- ---- requests need no authorization

INSERT INTO Solicitud_Cheque(
  Sch_Folio,
   Sch_Fecha,
   Tc_Cve_Tipo_Cheque,
   Bc_Cve_Banco_Cuenta,
   Sc_Cve_Sucursal,
   Sch_Concepto,
   Sch_Beneficiario,
   Sch_Tabla,
   Sch_Documento,
   Sch_Referencia,
   Sch_Importe,
   Sch_Tipo_Cambio,
   Sch_Transferencia,
   Sch_Aplicar,
   Sch_Firme,
   Sch_Solicitar_Valor,
   Oper_Alta,
   Fecha_Alta,
   Oper_Ult_Modif,
   Fecha_Ult_Modif,
   Es_Cve_Estado)
VALUES('SC-MTY-00000001', '2024-03-15', '0001', 'SRR-MXN', 'MTY', 'Pago de renta', 'Inmobiliaria del Norte',
'ORDEN_COMPRA', 'OC-7', 'REF-7', 1250.5, 19.25, 'NO', 'SI', 'NO', 'PV01', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
'2024-03-15 10:20:30', 'AC');

-- ---- they do

-- again INSERT Solicitud_Cheque with 'PXA' for 'AC'
