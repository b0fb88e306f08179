-- GetSaldo

-- ---- of all movements

SELECT SUM(Bm_Importe) as Saldo
FROM Banco_Movimiento
WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN' AND
   Es_Cve_Estado <> 'CA' ;

-- ---- of the firm ones alone

-- SELECT Banco_Movimiento (2)
-- The database refuses this one:
SELECT SUM(Bm_Importe) as Saldo
FROM Banco_Movimiento
WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN' AND
   Es_Cve_Estado <> 'CA' Es_Cve_Estado = 'FI';
