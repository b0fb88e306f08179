' Records as classes of the script itself: properties by the members' names, here in other cases, and no more than are needed.
Option Explicit

Class Branch
    Public SC_CVE_SUCURSAL
End Class

Class Receipt_type
    Public trp_cve_tipo_recibo_pago
End Class

Class Header
    Public Rp_Fecha
    Public TipoReciboPago
    Public Sucursal
    Public Mn_Cve_Moneda
    Public Rp_Tipo_Cambio
    Public Rp_Comentario
    Private Sub Class_Initialize()
        Set TipoReciboPago = New Receipt_type
        Set Sucursal = New Branch
    End Sub
End Class

Class Method
    Public Fp_Cve_Forma_Pago
End Class

Class Line
    Public Fp_Cve_Forma_Pago
    Public Rp_Importe
    Private Sub Class_Initialize()
        Set Fp_Cve_Forma_Pago = New Method
    End Sub
End Class

Class Stranger
    Public Other
End Class

Dim treasury, receipt, payment, back
Set treasury = CreateObject("Cuvexa.Tesoreria")
Set receipt = New Header
receipt.Rp_Fecha = Date
receipt.TipoReciboPago.trp_cve_tipo_recibo_pago = "01"
receipt.Sucursal.SC_CVE_SUCURSAL = "MTY"
receipt.Mn_Cve_Moneda = "MXN"
receipt.Rp_Tipo_Cambio = "1"
receipt.Rp_Comentario = "Acci" & Chr(243) & "n """ & Chr(128) & """"
treasury.NuevoReciboCaja
Set treasury.RpEncabezado = receipt
Set payment = New Line
payment.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago = "01"
payment.Rp_Importe = 12
Set treasury.RpDetalle = payment
WScript.Echo treasury.Add_Recibo_Caja_Detalle & treasury.Error

Set back = CreateObject("Cuvexa.tRpEncabezado")
back.Leer treasury, "RpEncabezado"
WScript.Echo back.Rp_Folio & " " & back.Sucursal.Sc_Cve_Sucursal & " " & (back.Rp_Comentario = receipt.Rp_Comentario)

' Errors arrive with number, source and description.
Dim extras
On Error Resume Next
Set treasury.RpEncabezado = New Stranger
If Err.Number <> 0 Then WScript.Echo "Refused"
Err.Clear
Set extras = treasury.RpDetalle2
WScript.Echo Err.Number & " " & Err.Source & " " & (Err.Description <> "")
Err.Clear
treasury.Afectar_Cheque_Presupuesto "C1", 40000
WScript.Echo Err.Number
Err.Clear
treasury.GetSaldo
If Err.Number <> 0 Then WScript.Echo "Refused"
On Error Goto 0
WScript.Echo "Done"
