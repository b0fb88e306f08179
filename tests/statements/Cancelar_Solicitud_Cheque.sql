-- Cancelar_Solicitud_Cheque

-- ---- a request that no check paid

SELECT Sch_Folio, Es_Cve_Estado
FROM Solicitud_Cheque
WHERE Sch_Folio = 'SC-MTY-00000001' ;

SELECT Ch_Folio
FROM Cheque
WHERE
   Ch_Tabla = 'SOLICITUD_CHEQUE' AND
   Ch_Documento = 'SC-MTY-00000001' AND
   Es_Cve_Estado <> 'CA'
ORDER BY Ch_Folio ;

UPDATE Solicitud_Cheque_Detalle SET
   Es_Cve_Estado = 'CA',
   Oper_Baja = 'CAJA1',
   Fecha_Baja = '2024-03-15 10:20:30'
WHERE Sch_Folio = 'SC-MTY-00000001';

UPDATE Solicitud_Cheque SET
   Es_Cve_Estado = 'CA',
   Oper_Baja = 'CAJA1',
   Fecha_Baja = '2024-03-15 10:20:30'
WHERE Sch_Folio = 'SC-MTY-00000001';
