-- PaymentMethodService

-- ---- ValidatePaymentLine

SELECT Fp_Descripcion, Fp_Requiere_Banco, Fp_Requiere_Referencia
FROM Forma_Pago
WHERE Fp_Cve_Forma_Pago = '02' AND Es_Cve_Estado <> 'BA';
