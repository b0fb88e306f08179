"""A cash receipt, captured with the client in Python; import it after `running`, which knows where the client is."""

import datetime

import cuvexa

DAY = datetime.date(2024, 3, 15)


def capture(treasury, amount=150.0):
    treasury.NuevoReciboCaja()
    treasury.RpEncabezado = cuvexa.tRpEncabezado(
        Rp_Fecha=DAY, Mn_Cve_Moneda="MXN", Rp_Tipo_Cambio=1,
        TipoReciboPago=cuvexa.tTrpTipoReciboPago(Trp_Cve_Tipo_Recibo_Pago="01"),
        Sucursal=cuvexa.tSucursalGeneral(Sc_Cve_Sucursal="MTY"))
    treasury.RpDetalle = cuvexa.tRpDetalle(
        Fp_Cve_Forma_Pago=cuvexa.tFormaPago(Fp_Cve_Forma_Pago="01"), Rp_Importe=amount)
    return treasury.Add_Recibo_Caja_Detalle()
