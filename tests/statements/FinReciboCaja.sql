-- FinReciboCaja

-- ---- of a supplier, paid in two methods: a payable each

SELECT
   Recibo_Pago.Rp_Folio,
   Recibo_Pago.Rp_Fecha,
   Recibo_Pago.Sc_Cve_Sucursal,
   Recibo_Pago.Mn_Cve_Moneda,
   Recibo_Pago.Rp_Tipo_Cambio,
   Recibo_Pago.Rp_Solicitar_Valor,
   Recibo_Pago.Rp_Comentario,
   Recibo_Pago.Rp_Referencia,
   SUM(Recibo_Pago.Rp_Importe) as Rp_Importe,
   Forma_Pago.Fp_Cve_Forma_Pago,
   Tipo_Recibo_Pago.Trp_Solicitar,
   Forma_Pago.Fp_Generar_Cuenta_x_Cobrar,
   Forma_Pago.Fp_Cliente,
   Sucursal.Em_Cve_Empresa
FROM Recibo_Pago
   INNER JOIN Tipo_Recibo_Pago ON Recibo_Pago.Trp_Cve_Tipo_Recibo_Pago = Tipo_Recibo_Pago.Trp_Cve_Tipo_Recibo_Pago
   INNER JOIN Forma_Pago ON Recibo_Pago.Fp_Cve_Forma_Pago = Forma_Pago.Fp_Cve_Forma_Pago
   INNER JOIN Sucursal ON Recibo_Pago.Sc_Cve_Sucursal = Sucursal.Sc_Cve_Sucursal
WHERE Recibo_Pago.Rp_Folio = 'RP-MTY-00000001' AND
   Recibo_Pago.Es_Cve_Estado <> 'CA'
GROUP BY
   Recibo_Pago.Rp_Folio,
   Recibo_Pago.Rp_Fecha,
   Recibo_Pago.Sc_Cve_Sucursal,
   Recibo_Pago.Mn_Cve_Moneda,
   Recibo_Pago.Rp_Tipo_Cambio,
   Recibo_Pago.Rp_Solicitar_Valor,
   Recibo_Pago.Rp_Comentario,
   Recibo_Pago.Rp_Referencia,
   Forma_Pago.Fp_Cve_Forma_Pago,
   Tipo_Recibo_Pago.Trp_Solicitar,
   Forma_Pago.Fp_Generar_Cuenta_x_Cobrar,
   Forma_Pago.Fp_Cliente,
   Sucursal.Em_Cve_Empresa;

UPDATE Recibo_Pago SET
   Es_Cve_Estado = 'AP',
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Rp_Folio = 'RP-MTY-00000001';

-- again UPDATE Recibo_Pago

-- ---- of a customer

-- again SELECT Recibo_Pago
-- again UPDATE Recibo_Pago
-- again UPDATE Recibo_Pago

-- ---- of nobody: only its registration is left

-- again SELECT Recibo_Pago
