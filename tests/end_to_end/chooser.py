"""The chooser of a file that Qt draws where the desktop has none."""

ASKS = "Pick the revised PDF. The low-res export is fine."


def choose_file(reader, path, asks):
    """Once it is open, by keyboard but for the file itself."""
    reader.find(contains=asks)
    reader.key("ctrl+l")
    reader.key("ctrl+a")
    reader.type(str(path.parent))
    reader.key("Return")
    reader.click(reader.find(name=path.name, roles=("label",)))
    reader.click(reader.find(name="Open", roles=("button", "push button")))
    reader.gone(contains=asks)


def choose_pdf(reader, path):
    """From the sheet on."""
    reader.press_named("Choose PDF…")
    choose_file(reader, path, ASKS)
