-- SessionServices

-- ---- GetParameter

-- DataServices: SELECT Parametro_Sistema with 'FIN_MONEDA_LOCAL'

-- ---- GetServerId

SELECT Sv_Servidor_Id
FROM Servidor_Suite
WHERE Sv_Llave = 1;

-- ---- IsReplicaServer

-- SELECT Servidor_Suite (2)
SELECT Sv_Replica
FROM Servidor_Suite
WHERE Sv_Llave = 1;

-- ---- GetParameter, in an operation

SELECT 'Parametro_Sistema' AS Tabla, Ps_Nombre AS Nombre, Ps_Valor AS Valor
FROM Parametro_Sistema UNION ALL
SELECT 'Configuracion_Contable', Ct_Codigo, Ct_Automatica
FROM Configuracion_Contable UNION ALL
SELECT 'Servidor_Suite', 'Sv_Servidor_Id', Sv_Servidor_Id
FROM Servidor_Suite
WHERE Sv_Llave = 1 UNION ALL
SELECT 'Servidor_Suite', 'Sv_Replica', Sv_Replica
FROM Servidor_Suite
WHERE Sv_Llave = 1;
