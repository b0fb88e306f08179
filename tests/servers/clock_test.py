#!/usr/bin/python3
"""The day is the server's, whatever the clock of the machine says on which the program runs: with documents forced to be of
today, a receipt of the server's day is taken and one of the program's day is refused.

    clock_test.py CUVEXA     under with_postgresql; the program runs under libfaketime, whose clock is two days ahead
"""
import datetime
import glob
import os
import sys

from users import HEADER, LINE, Databases, Refused, User

AHEAD = datetime.timedelta(days=2)


class Early(User):
    """A user whose machine is ahead of the server's."""

    def start(self):
        self.command = [part for part in self.command if part not in ("--server-date", "2024-03-15")]
        library = glob.glob("/usr/lib/*/faketime/libfaketime.so.1")[0]
        own = {name: os.environ.get(name) for name in ("LD_PRELOAD", "FAKETIME")}
        os.environ.update(LD_PRELOAD=library, FAKETIME="+2d")
        try:
            super().start()
        finally:
            for name, value in own.items():
                os.environ.pop(name) if value is None else os.environ.update({name: value})

    def capture(self, day):
        self.run("NuevoReciboCaja")
        self.let("RpEncabezado", {**HEADER, "Rp_Fecha": day.isoformat(), "Rp_Fecha_Deposito": day.isoformat()})
        self.let("RpDetalle", {**LINE, "Rp_Importe": 10})
        self.call("Add_Recibo_Caja_Detalle")


def refusal(user, day):
    try:
        user.capture(day)
        return None
    except Refused as refused:
        return str(refused)


def main():
    if not glob.glob("/usr/lib/*/faketime/libfaketime.so.1"):
        print("clock_test: no libfaketime (package libfaketime)", file=sys.stderr)
        sys.exit(1 if os.environ.get("CUVEXA_TEST_MUST_RUN") else 77)
    databases = Databases(sys.argv[1])
    database = databases.fresh()
    name = database.rsplit("/", 1)[1]

    def ask(text):
        return databases.tool("psql", "-At", "-d", name, "-c", text).strip()

    ask("UPDATE Parametro_Sistema SET Ps_Valor = '1' WHERE Ps_Nombre = 'GEN_FORZAR_TIEMPO_REAL'")
    ask("UPDATE Parametro_Sistema SET Ps_Valor = '0' WHERE Ps_Nombre = 'GEN_VALIDAR_PERIODO_OPERATIVO'")
    user = Early(sys.argv[1], database, databases.scratch("trace"))
    day = datetime.date.fromisoformat(ask("SELECT CURRENT_DATE"))
    of_the_server, of_the_program = refusal(user, day), refusal(user, day + AHEAD)
    if datetime.date.fromisoformat(ask("SELECT CURRENT_DATE")) != day:  # midnight came in between
        day += datetime.timedelta(days=1)
        of_the_server, of_the_program = refusal(user, day), refusal(user, day + AHEAD)
    user.stop()
    print(f"of the server's day: {of_the_server}; of the program's: {of_the_program}")
    if of_the_server is not None or "no es del día actual" not in str(of_the_program):
        sys.exit("the day is not the server's")


if __name__ == "__main__":
    main()
