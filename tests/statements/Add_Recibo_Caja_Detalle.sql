-- Add_Recibo_Caja_Detalle

-- ---- the first line, with everything

INSERT INTO Recibo_Pago(
  Rp_Folio,
   Rp_Id,
   Rp_Fecha,
   Sc_Cve_Sucursal,
   Trp_Cve_Tipo_Recibo_Pago,
   Rp_Solicitar_Valor,
   Rp_Tabla,
   Rp_Documento,
   Rp_Referencia,
   Rp_Comentario,
   Mn_Cve_Moneda,
   Rp_Tipo_Cambio,
   Rp_Fecha_Deposito,
   Rp_Folio_Deposito,
   Rp_Deposito_ID,
   Fp_Cve_Forma_Pago,
   Rp_Banco,
   Rp_Cheque,
   Rp_Cuenta_Bancaria,
   Rp_Importe,
   Rp_Cve_Banco,
   Rp_Vendedor,
   Rp_Comisionista,
   Rp_Promotor,
   Rp_Chofer,
   Rp_Cobratario,
   Oper_Alta,
   Fecha_Alta,
   Oper_Ult_Modif,
   Fecha_Ult_Modif)
VALUES('RP-MTY-00000001', '0001', '2024-03-14', 'MTY', '05', 'CL01', 'FACTURA_VENTA', 'FV-5001', 'REF-1', 'Cobranza',
'USD', 19.5, '2024-03-16', 'D-1', '0007', '02', 'Banco de la Sierra', 'CH-77', '0011223344', 1234.56, 'SIERRA',
'VN01', 'COM1', 'PRO1', 'CHO1', 'COB1', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30');

-- ---- a second line, in cash

-- again INSERT Recibo_Pago with '0002' for '0001', '2024-03-15' for '2024-03-14', '01' for '05', '' for 'CL01',
--    '' for 'FACTURA_VENTA', '' for 'FV-5001', 'MXN' for 'USD', 1 for 19.5, '2024-03-15' for '2024-03-16',
--    '' for 'D-1', '' for '0007', '01' for '02', '' for 'Banco de la Sierra', '' for 'CH-77', '' for '0011223344',
--    100 for 1234.56, '' for 'SIERRA', '' for 'VN01', '' for 'COM1', '' for 'PRO1', '' for 'CHO1', '' for 'COB1'
