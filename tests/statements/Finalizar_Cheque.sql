-- Finalizar_Cheque

-- ---- checks are posted by themselves

SELECT Em_Cve_Empresa
FROM Cheque
   INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal
WHERE
   Ch_Folio = 'CH-MTY-00000001' AND
   Cheque.Es_Cve_Estado <> 'CA' AND
   Sucursal.Es_Cve_Estado <> 'BA' ;

-- ---- they are not
