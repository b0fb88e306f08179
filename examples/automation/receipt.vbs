' A cash receipt from a script: captured, closed, deposited, and cancelled again.
'
'   cscript //nologo receipt.vbs
'
' Works on the suite that is registered on this machine, or on the reference suite with the sample company
' (its keys are used here). Set CUVEXA_DB to choose another database.
'
' VBScript knows no records. For each there is a class of the same name whose properties are the members; Leer reads
' a record property of another object into it.
Option Explicit

Dim treasury, header, line, folio, deposit, today
Set treasury = CreateObject("Cuvexa.Tesoreria")
Set header = CreateObject("Cuvexa.tRpEncabezado")
Set line = CreateObject("Cuvexa.tRpDetalle")
today = Date

Sub Check(ok, what)
    If Not ok Then
        WScript.Echo what & ": " & treasury.Error
        WScript.Quit 1
    End If
    WScript.Echo what & ": ok"
End Sub

Sub AddLine(method, reference, amount)
    line.Vaciar
    line.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago = method
    line.Rp_Cheque = reference
    line.Rp_Importe = amount
    Set treasury.RpDetalle = line
    Check treasury.Add_Recibo_Caja_Detalle, "Line of " & FormatNumber(amount, 2)
End Sub

' The header first, then line by line.
treasury.NuevoReciboCaja
header.Rp_Fecha = today
header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = "01"
header.Sucursal.Sc_Cve_Sucursal = "MTY"
header.Mn_Cve_Moneda = "MXN"
header.Rp_Tipo_Cambio = 1
Set treasury.RpEncabezado = header
AddLine "01", "", 1500
AddLine "04", "T-881", 250.5

' The component gave the receipt its folio with the first line.
header.Leer treasury, "RpEncabezado"
folio = header.Rp_Folio
Check treasury.FinReciboCaja(folio), "Receipt closed"

Check treasury.Genera_Deposito("SRR-MXN", folio, today, True, today, "From a script"), "Deposited"
deposit = treasury.Dp_Folio
WScript.Echo "Receipt " & folio & ", deposit " & deposit & ", balance " & FormatNumber(treasury.GetSaldo("SRR-MXN"), 2)

' What the component refuses it says.
If treasury.Genera_Deposito("SRR-MXN", folio, today, True, today) Then WScript.Quit 1
WScript.Echo "Refused: " & treasury.Error

' The way back: the deposit goes with the receipt.
Check treasury.Cancelar_Recibo_Caja(folio, True), "Receipt cancelled"
WScript.Echo "Balance " & FormatNumber(treasury.GetSaldo("SRR-MXN"), 2)
WScript.Echo "Done"
