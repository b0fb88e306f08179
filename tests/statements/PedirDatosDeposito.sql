-- PedirDatosDeposito

-- ---- the account is typed

SELECT Bc_Descripcion
FROM Banco_Cuenta
 WHERE Mn_Cve_Moneda = 'MXN' AND
  Bc_Cve_Banco_Cuenta = 'SRR-MXN' AND Es_Cve_Estado <> 'BA' ;

-- ---- it is typed, for one company

-- SELECT Banco_Cuenta (2)
SELECT Bc_Descripcion
FROM Banco_Cuenta
 WHERE Mn_Cve_Moneda = 'MXN' AND
  Bc_Cve_Banco_Cuenta = 'SRR-MXN' AND Es_Cve_Estado <> 'BA'
 AND (Em_Cve_Empresa = 'EM01' OR Bc_MultiEmpresa = 'SI');

-- ---- it is chosen from the list

-- SELECT Banco_Cuenta (3)
SELECT
   Banco_Cuenta.Bc_Cve_Banco_Cuenta AS CUENTA,
   Banco_Cuenta.Bc_Descripcion AS DESCRIPCION,
   Banco_Cuenta.Mn_Cve_Moneda AS MONEDA,
   Empresa.Em_Descripcion AS EMPRESA
FROM Banco_Cuenta
   LEFT JOIN Empresa ON Empresa.Em_Cve_Empresa = Banco_Cuenta.Em_Cve_Empresa
WHERE
   (Banco_Cuenta.Bc_Cve_Banco_Cuenta LIKE '%sierra%' OR
   Banco_Cuenta.Bc_Descripcion LIKE '%sierra%') AND
   Banco_Cuenta.Es_Cve_Estado <> 'BA' AND Banco_Cuenta.Mn_Cve_Moneda = 'MXN'
ORDER BY Banco_Cuenta.Bc_Cve_Banco_Cuenta;

-- again SELECT Banco_Cuenta

-- ---- it is chosen from the list of one company

-- SELECT Banco_Cuenta (4)
SELECT
   Banco_Cuenta.Bc_Cve_Banco_Cuenta AS CUENTA,
   Banco_Cuenta.Bc_Descripcion AS DESCRIPCION,
   Banco_Cuenta.Mn_Cve_Moneda AS MONEDA,
   Empresa.Em_Descripcion AS EMPRESA
FROM Banco_Cuenta
   LEFT JOIN Empresa ON Empresa.Em_Cve_Empresa = Banco_Cuenta.Em_Cve_Empresa
WHERE
   (Banco_Cuenta.Bc_Cve_Banco_Cuenta LIKE '%sierra%' OR
   Banco_Cuenta.Bc_Descripcion LIKE '%sierra%') AND
   Banco_Cuenta.Es_Cve_Estado <> 'BA' AND Banco_Cuenta.Mn_Cve_Moneda = 'MXN' AND (Empresa.Em_Cve_Empresa = 'EM01' OR
Bc_MultiEmpresa = 'SI')
ORDER BY Banco_Cuenta.Bc_Cve_Banco_Cuenta;

-- again SELECT Banco_Cuenta (2)
