-- RpEncabezado

-- ---- the type of the receipt is read

SELECT *
FROM Tipo_Recibo_Pago
WHERE Trp_Cve_Tipo_Recibo_Pago = '01' ;
