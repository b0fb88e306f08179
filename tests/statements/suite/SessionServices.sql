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
