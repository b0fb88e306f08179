-- Autorizar_Solicitud_Cheque

-- ---- with its lines

SELECT *
FROM Solicitud_Cheque
WHERE
   Sch_Folio = 'SC-MTY-00000001' AND
   Es_Cve_Estado <> 'CA' ;

UPDATE Solicitud_Cheque SET Es_Cve_Estado = 'AC'
WHERE Sch_Folio = 'SC-MTY-00000001';

SELECT *
FROM Solicitud_Cheque_Detalle
WHERE
   Sch_Folio = 'SC-MTY-00000001' AND
   Es_Cve_Estado <> 'CA' ;

UPDATE Solicitud_Cheque_Detalle SET Es_Cve_Estado = 'AC'
WHERE Sch_Folio = 'SC-MTY-00000001';

-- ---- without lines

-- again SELECT Solicitud_Cheque
-- again UPDATE Solicitud_Cheque
-- again SELECT Solicitud_Cheque_Detalle
