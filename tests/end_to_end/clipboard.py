"""What the program has put on the clipboard."""

from private_session import wait_until

FIELD = ("text", "entry")
NOTE = "Write a note for the report"


def pasted(desk):
    """The clipboard, as the field of a note has it."""
    reader = desk.reader
    reader.click(reader.find(name=NOTE, roles=FIELD))
    reader.key("ctrl+a")
    reader.key("ctrl+v")
    text = wait_until("something to be pasted",
                      lambda: reader.text(reader.find(name=NOTE, roles=FIELD)))
    reader.key("ctrl+a")
    reader.key("BackSpace")
    return text
