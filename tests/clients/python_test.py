"""The client in Python: both doors, against the program and against a service of it."""

import datetime
import json
import sys
import unittest

import running
from running import Company, Obstacle, Served

import cuvexa
from receipts import DAY, capture


class Description(unittest.TestCase):
    def test_the_module_has_each_record_and_each_member_of_the_description(self):
        told = json.loads(running.run("describe"))
        for type_ in told["x-classes"]:
            for member in type_["members"]:
                self.assertTrue(hasattr(getattr(cuvexa, type_["name"]), member["name"]), member["name"])
        for name, record in told["components"]["schemas"].items():
            if name not in ("Object", "Date"):
                self.assertEqual(list(vars(getattr(cuvexa, name)())), list(record["properties"]))

    def test_a_member_tells_what_it_refuses_and_a_record_is_empty_at_first(self):
        self.assertIn("Refusals, in order", cuvexa.Tesoreria.FinReciboCaja.__doc__)
        self.assertIn("Refuses, in this order", cuvexa.Batched_Tesoreria.Cancelar_Deposito.__doc__)
        self.assertEqual(cuvexa.tRpEncabezado().Rp_Fecha, cuvexa.no_date)
        self.assertIsNot(cuvexa.tRpEncabezado().Sucursal, cuvexa.tRpEncabezado().Sucursal)


class Program(Company):
    def program(self):
        return cuvexa.Program(self.database, program=running.CUVEXA, arguments=["--server-date", running.DAY])

    def test_a_receipt_is_captured_closed_and_deposited(self):
        with self.program() as program:
            treasury = program.Tesoreria()
            self.assertTrue(capture(treasury), treasury.Error)
            captured = treasury.RpEncabezado
            self.assertEqual((captured.Rp_Folio, captured.Rp_Fecha), ("RP-MTY-00000001", DAY))
            self.assertTrue(treasury.FinReciboCaja(captured.Rp_Folio))
            self.assertTrue(treasury.Genera_Deposito("SRR-MXN", captured.Rp_Folio, DAY, True, DAY))
            self.assertEqual(treasury.Dp_Folio, "DP-MTY-00000001")
            self.assertEqual(treasury.GetSaldo("SRR-MXN"), 150)

    def test_a_refusal_is_false_and_its_reason_in_error(self):
        with self.program() as program:
            treasury = program.Tesoreria()
            self.assertFalse(treasury.Cancelar_Cheque("NONE"))
            self.assertTrue(treasury.Error.startswith("Cuvexa.dll - Cancelar_Cheque()"), treasury.Error)

    def test_a_record_by_reference_comes_back_as_the_member_left_it(self):
        movement = cuvexa.tBnMovimiento(
            Bt_Cve_Banco_Tipo_Movimiento="INT", Bm_Fecha=DAY, Bm_Fecha_Firme=datetime.datetime(2024, 3, 15, 10, 30),
            Bm_Importe=10, Bm_Tipo_Cambio=1, EnFirme=True,
            Cuenta=cuvexa.tCuenta(Bc_Cve_Banco_Cuenta="SRR-MXN"))
        with self.program() as program:
            treasury = program.Tesoreria()
            self.assertTrue(treasury.Registra_Movimiento_Banco(movement), treasury.Error)
        self.assertEqual((movement.Bm_Tabla, movement.Cuenta.Mn_Cve_Moneda), ("Cheque", "MXN"))
        self.assertEqual(movement.Bm_Fecha_Firme, datetime.datetime(2024, 3, 15, 10, 30))

    def test_objects_are_given_and_run_time_errors_raised(self):
        with self.program() as program:
            treasury, extras = program.Tesoreria(), program.clsRpDetalle()
            extras.Rp_Vendedor = "V1"
            treasury.RpDetalle2 = extras
            self.assertEqual(extras.Rp_Vendedor, "V1")
            with self.assertRaises(cuvexa.Failed) as raised:
                treasury.RpDetalle2
            self.assertEqual((raised.exception.code, raised.exception.number), (-32000, 91))

    def test_a_program_that_does_not_run_says_so(self):
        with cuvexa.Program(self.database + "-none", program=running.CUVEXA) as program:
            self.assertRaises((EOFError, BrokenPipeError), program.Tesoreria)


class Batch(Served):
    def setUp(self):
        super().setUp()
        self.service = self.connected(self.address)

    def connected(self, address, **options):
        service = cuvexa.Service(address, options.pop("token", self.token), **options)
        self.addCleanup(service.close)
        return service

    def capture(self, service, key=None, amount=150.0):
        with service.batch(key) as batch:
            treasury = batch.Tesoreria()
            capture(treasury, amount)
            receipt = treasury.RpEncabezado
            treasury.FinReciboCaja(receipt.Rp_Folio)
        return batch, receipt

    def test_what_earlier_entries_give_goes_into_later_ones(self):
        with self.service.batch() as batch:
            treasury = batch.Tesoreria()
            capture(treasury)
            receipt = treasury.RpEncabezado
            closed = treasury.FinReciboCaja(receipt.Rp_Folio)
            treasury.Genera_Deposito("SRR-MXN", receipt.Rp_Folio, DAY, True, DAY)
            deposit, balance = treasury.Dp_Folio, treasury.GetSaldo("SRR-MXN")
            self.assertRaises(LookupError, lambda: deposit.value)
        self.assertIsInstance(receipt.value, cuvexa.tRpEncabezado)
        self.assertEqual((receipt.value.Rp_Folio, receipt.value.Sucursal.Sc_Cve_Sucursal), ("RP-MTY-00000001", "MTY"))
        self.assertEqual(receipt.Rp_Fecha.value, DAY)
        self.assertIs(closed.value, True)
        self.assertEqual((deposit.value, balance.value), ("DP-MTY-00000001", 150))
        self.assertRaises(AttributeError, lambda: receipt.Nothing)

    def test_a_refusal_is_raised_with_its_reason_and_nothing_is_kept(self):
        with self.assertRaises(cuvexa.Refused) as raised:
            with self.service.batch() as batch:
                treasury = batch.Tesoreria()
                capture(treasury)
                folio = treasury.RpEncabezado.Rp_Folio
                treasury.Genera_Deposito("NONE", folio, DAY, True, DAY)
        self.assertEqual(raised.exception.member, "Genera_Deposito")
        self.assertIn("No se encontró la información de la cuenta bancaria!", str(raised.exception))
        self.assertRaises(LookupError, lambda: folio.value)
        self.assertEqual(self.shown("receipts"), [])

    def test_what_does_not_fit_is_raised(self):
        with self.assertRaises(cuvexa.Failed) as raised:
            with self.service.batch() as batch:
                batch.Tesoreria().GetSaldo(5)
        self.assertEqual(raised.exception.code, -32602)

    def test_a_batch_that_ends_by_an_exception_is_not_sent(self):
        with self.assertRaises(ZeroDivisionError):
            with self.service.batch("k") as batch:
                capture(batch.Tesoreria(), 1 / 0)
        self.assertIsNone(self.service.answer_to("k"))

    def test_a_record_by_reference_comes_back(self):
        movement = cuvexa.tBnMovimiento(
            Bt_Cve_Banco_Tipo_Movimiento="INT", Bm_Fecha=DAY, Bm_Fecha_Firme=DAY, Bm_Importe=10, Bm_Tipo_Cambio=1,
            Cuenta=cuvexa.tCuenta(Bc_Cve_Banco_Cuenta="SRR-MXN"))
        with self.service.batch() as batch:
            batch.Tesoreria().Registra_Movimiento_Banco(movement)
        self.assertEqual(movement.Cuenta.Mn_Cve_Moneda, "MXN")

    def test_a_key_is_done_once_and_can_be_asked_for(self):
        first, receipt = self.capture(self.service, "order/1")
        again, repeated = self.capture(self.service, "order/1")
        self.assertEqual((first.replayed, again.replayed), (False, True))
        self.assertEqual(repeated.value, receipt.value)
        self.assertEqual(len(self.shown("receipts")), 1)
        self.assertEqual(self.service.answer_to("order/1")[-1]["result"]["value"], True)
        with self.assertRaises(cuvexa.Service_error) as raised:
            self.capture(self.service, "order/1", 151)
        self.assertEqual(raised.exception.status, 422)

    def test_who_may_not_is_told_so(self):
        with self.assertRaises(cuvexa.Service_error) as raised:
            self.capture(self.connected(self.address, token="cvx_no"))
        self.assertEqual((raised.exception.status, str(raised.exception)), (401, "401: not authorized"))

    def test_it_is_sent_again_with_its_key_until_there_is_an_answer(self):
        with Obstacle(self.address, ["drop", "refuse", "lose"]) as obstacle:
            batch, receipt = self.capture(self.connected(obstacle.address))
        self.assertEqual(obstacle.keys, [batch.key] * 4)
        self.assertTrue(batch.replayed, "the third was done, and its answer lost")
        self.assertEqual(receipt.Rp_Folio.value, "RP-MTY-00000001")
        self.assertEqual(len(self.shown("receipts")), 1)

    def test_after_its_tries_the_key_tells_what_became_of_it(self):
        with Obstacle(self.address, ["lose", "drop"]) as obstacle:
            with self.assertRaises(cuvexa.Unreachable) as raised:
                self.capture(self.connected(obstacle.address, tries=2))
        self.assertIsNotNone(self.service.answer_to(raised.exception.key))
        self.assertIsNone(self.service.answer_to("another"))


class Readme(Company):
    def test_the_example_runs_as_it_stands(self):
        code, output = running.run_readme(self.folder, "python", sys.executable)
        self.assertEqual(code, 0, output)
        self.assertTrue(output.endswith("RP-MTY-00000001 is in DP-MTY-00000001\n"), output)


if __name__ == "__main__":
    unittest.main()
