"""What must hold when the users have gone: nothing acknowledged is missing, no folio was given twice, none is lost
without a reason, every balance is what the movements say to the last cent, and the audit finds what was left half done
and nothing else.
"""
import collections
import json
import re
import subprocess

from users import ACCOUNT

FOLIO = re.compile(r"\b[A-Z]{2}-(?:MTY-)?\d{8}\b")

# What an operation that was not acknowledged may have left undone: the sign with which the document's amount is missing
# from the account's balance, and from the bank's beyond that.
UNDONE = {("receipt", "deposited"): (-1, -1), ("receipt", "cancelled"): (-1, +1),
          ("check", "created"): (+1, +1), ("check", "cancelled"): (+1, -1)}

# The folios that an operation takes.
TAKES = {("receipt", "captured"): ("RP",), ("receipt", "deposited"): ("DP", "BM"), ("check", "created"): ("CH", "BM")}


def cents(amount):
    return round(amount * 100)


class Books:
    """The database as `cuvexa show` and `cuvexa audit` tell it."""

    def __init__(self, program, database):
        self.program, self.database = program, database
        self.receipts = {row["Rp_Folio"]: row for row in self.show("receipts")}
        self.deposits = {row["Dp_Folio"]: row for row in self.show("deposits")}
        self.checks = {row["Ch_Folio"]: row for row in self.show("checks")}
        self.movements = self.show("movements")
        self.accounts = self.show("accounts")
        self.findings = json.loads(self.run("audit"))

    def run(self, *arguments):
        done = subprocess.run([self.program, *arguments, "--json", "--db", self.database],
                              capture_output=True, text=True)
        if not done.stdout:
            raise SystemExit(f"{' '.join(arguments)}: {done.stderr}")
        return done.stdout

    def show(self, view):
        return json.loads(self.run("show", view))

    def named(self, finding):
        """The documents that a finding is about; a movement stands for its document."""
        document_of = {row["Bm_Folio"]: row["Bm_Documento"] for row in self.movements}
        return {document_of.get(folio, folio) for folio in FOLIO.findall(finding["document"])}

    def movement(self, document):
        found = [row for row in self.movements if row["Bm_Documento"] == document]
        return found[0] if len(found) == 1 else None


def verify(books, documents):
    """Everything that is wrong, as texts."""
    identify(books, documents)
    doubts = [document for document in documents if document.doubt]
    wrong = [problem for document in documents if document.stage for problem in missing(books, document)]
    wrong += folios(books, documents, doubts)
    wrong += balances(books, documents, doubts)
    wrong += unexplained(books, documents)
    wrong += unnamed(books, doubts)
    return wrong


def identify(books, documents):
    """A program that died took folios with it that its user never saw. No two documents of a kind have one amount."""
    receipts = {cents(row["Rp_Importe"]): folio for folio, row in books.receipts.items()}
    deposits = {cents(row["Dp_Importe"]): folio for folio, row in books.deposits.items()}
    checks = {cents(row["Ch_Importe"]): folio for folio, row in books.checks.items()}
    for document in documents:
        if document.kind == "receipt":
            document.folio = document.folio or receipts.get(document.cents)
            document.deposit = document.deposit or deposits.get(document.cents)
        else:
            document.folio = document.folio or checks.get(document.cents)


def missing(books, document):
    """What was acknowledged and is not there."""
    if document.kind == "receipt":
        rows = [(books.receipts.get(document.folio), "Rp_Importe",
                 {"captured": "AC", "closed": "AC", "deposited": "DP"})]
        if document.stage in ("deposited", "cancelled"):
            rows += [(books.deposits.get(document.deposit), "Dp_Importe", {"deposited": "AC"}),
                     (books.movement(document.deposit), "Bm_Importe", {"deposited": "FI"})]
    else:
        rows = [(books.checks.get(document.folio), "Ch_Importe", {"created": "AC"}),
                (books.movement(document.folio), "Bm_Importe", {"created": "TR"})]
    for row, column, states in rows:
        if row is None or abs(cents(row[column])) != document.cents:
            yield f"acknowledged and missing: {document.kind} {document.folio} {document.stage}: {row}"
        elif not document.doubt and row["Es_Cve_Estado"] != states.get(document.stage, "CA"):
            yield f"acknowledged and not so: {document.kind} {document.folio} {document.stage}: {row}"


def folios(books, documents, doubts):
    known = [folio for document in documents for folio in (document.folio, document.deposit) if folio]
    twice = [folio for folio, times in collections.Counter(known).items() if times > 1]
    wrong = [f"given twice: {folio}" for folio in twice]
    movements = [row["Bm_Folio"] for row in books.movements]
    taken = {"RP": books.receipts, "DP": books.deposits, "CH": books.checks, "BM": set(movements)}
    if len(taken["BM"]) < len(movements):
        wrong.append("a movement's folio was given twice")
    for series, found in taken.items():
        numbers = {int(folio.rsplit("-", 1)[1]) for folio in found}
        gaps = max(numbers, default=0) - len(numbers)
        reasons = sum(series in TAKES.get((document.kind, document.doubt), ()) for document in doubts)
        if gaps > reasons:
            wrong.append(f"{gaps} folios lost among {series}, {reasons} operations in doubt")
        stray = set(found) - set(known) if series != "BM" else ()
        if len(stray) > reasons:
            wrong.append(f"nobody's: {sorted(stray)}, {reasons} operations in doubt")
    return wrong


def is_sum(total, parts):
    """Whether some of these amounts, or none, sum to it. Bit n tells of the sum n above the lowest."""
    lowest = sum(part for part in parts if part < 0)
    sums = 1 << -lowest
    for part in parts:
        sums |= sums << part if part > 0 else sums >> -part
    return total >= lowest and bool(sums >> (total - lowest) & 1)


def balances(books, documents, doubts):
    live = sum(cents(row["Bm_Importe"]) for row in books.movements if row["Es_Cve_Estado"] != "CA")
    account = next(row for row in books.accounts if row["Bc_Cve_Banco_Cuenta"] == ACCOUNT)
    own = cents(account["Bc_Saldo"]) - live
    bank = cents(account["Bn_Saldo"]) - sum(
        cents(row["Bc_Saldo"]) for row in books.accounts if row["Bn_Cve_Banco"] == account["Bn_Cve_Banco"])
    parts = [(document.cents, UNDONE[document.kind, document.doubt]) for document in doubts
             if (document.kind, document.doubt) in UNDONE]
    wrong = []
    if not is_sum(own, [amount * signs[0] for amount, signs in parts]):
        wrong.append(f"the account's balance is {own} cents off, which no operation in doubt explains")
    if not is_sum(bank, [amount * signs[1] for amount, signs in parts]):
        wrong.append(f"the bank's balance is {bank} cents off, which no operation in doubt explains")
    for rule, off in (("saldo-de-cuenta", own), ("saldo-de-banco", bank)):
        if any(finding["check"] == rule for finding in books.findings) != (off != 0):
            wrong.append(f"{off} cents off, and the audit's {rule} says otherwise")
    # What the users themselves reckon, the doubtful left open.
    moved = {"deposited": +1, "created": -1}
    reckoned = sum(document.cents * moved.get(document.stage, 0) for document in documents if not document.doubt)
    open_amounts = [document.cents * (+1 if document.kind == "receipt" else -1) for document in doubts
                    if (document.kind, document.doubt) in UNDONE]
    if not is_sum(live - reckoned, open_amounts):
        wrong.append(f"the movements sum to {live} cents, the users reckon {reckoned}")
    return wrong


def unexplained(books, documents):
    """Findings about documents of which every operation was acknowledged."""
    doubtful = {folio for document in documents if document.doubt
                for folio in (document.folio, document.deposit) if folio}
    lost_lines = any(document.doubt == "created" for document in documents)
    for finding in books.findings:
        if finding["check"] in ("saldo-de-cuenta", "saldo-de-banco"):
            continue  # `balances` has looked at the figures
        if finding["check"] == "cheque-sin-encabezado" and lost_lines and not books.named(finding) & set(books.checks):
            continue  # `folios` has counted them
        if not books.named(finding) or not books.named(finding) <= doubtful:
            yield f"the audit finds what no operation in doubt explains: {finding}"


# The states of a document, of its deposit and of the bank movement before and after an operation, and where it may rest
# in between with nothing left half done.
WHOLE = {
    ("receipt", "deposited"): {("AC", None, None), ("DP", "AC", "FI")},
    ("receipt", "cancelled"): {("DP", "AC", "FI"), ("AC", "CA", "CA"), ("CA", "CA", "CA")},
    ("check", "created"): {(None, None), ("AC", "TR")},
    ("check", "cancelled"): {("AC", "TR"), ("CA", "CA")},
}


def unnamed(books, doubts):
    """What was left half done and the audit does not find."""
    found = set().union(*(books.named(finding) for finding in books.findings))
    for document in doubts:
        if document.kind == "receipt":
            rows = (books.receipts.get(document.folio), books.deposits.get(document.deposit),
                    books.movement(document.deposit))
        else:
            rows = (books.checks.get(document.folio), books.movement(document.folio))
        states = tuple(row and row["Es_Cve_Estado"] for row in rows)
        whole = WHOLE.get((document.kind, document.doubt))
        if whole and states not in whole and not found & {document.folio, document.deposit}:
            yield ("half done, and the audit does not find it: "
                   f"{document.kind} {document.folio} {document.doubt} {states}")
