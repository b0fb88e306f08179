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

-- SELECT Servidor_Suite (3)
SELECT (SELECT Sv_Servidor_Id FROM Servidor_Suite WHERE Sv_Llave = 1) AS Sv_Servidor_Id,
(SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = 'TES_REDONDEA_IMPORTE_CHEQUE') AS
TES_REDONDEA_IMPORTE_CHEQUE, (SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = 'TES_FORMA_PAGO_CHEQUE') AS
TES_FORMA_PAGO_CHEQUE, (SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = 'TES_FORMA_PAGO_TRANSFERENCIA') AS
TES_FORMA_PAGO_TRANSFERENCIA, (SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = 'FIN_MONEDA_LOCAL') AS
FIN_MONEDA_LOCAL, (SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = 'GEN_FORZAR_TIEMPO_REAL') AS
GEN_FORZAR_TIEMPO_REAL, (SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = 'TES_AUTORIZAR_SOLICITUD_CHEQUE') AS
TES_AUTORIZAR_SOLICITUD_CHEQUE;

-- SELECT Servidor_Suite (4)
SELECT (SELECT Sv_Replica FROM Servidor_Suite WHERE Sv_Llave = 1) AS Sv_Replica,
(SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = 'GEN_VALIDAR_PERIODO_OPERATIVO') AS
GEN_VALIDAR_PERIODO_OPERATIVO;

SELECT (SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = 'TES_MOVIMIENTO_DEPOSITO') AS
TES_MOVIMIENTO_DEPOSITO, (SELECT Ct_Automatica FROM Configuracion_Contable WHERE Ct_Codigo = 'DEPOSITO_PAGO') AS
DEPOSITO_PAGO, (SELECT Ct_Automatica FROM Configuracion_Contable WHERE Ct_Codigo = 'BANCO_MOVIMIENTO') AS
BANCO_MOVIMIENTO;

-- SELECT Parametro_Sistema (2)
SELECT (SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = 'TES_MOVIMIENTO_CHEQUE') AS TES_MOVIMIENTO_CHEQUE,
(SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = 'TES_MOVIMIENTO_TRANSFERENCIA') AS
TES_MOVIMIENTO_TRANSFERENCIA, (SELECT Ct_Automatica FROM Configuracion_Contable WHERE Ct_Codigo = 'CHEQUE') AS CHEQUE,
(SELECT Ct_Automatica FROM Configuracion_Contable WHERE Ct_Codigo = 'BANCO_MOVIMIENTO') AS BANCO_MOVIMIENTO;
