"""An extension of Inkscape: offers the fill of the selected objects to Chromalog and gives them what OK returns."""
import subprocess

import inkex


class PickFill(inkex.EffectExtension):
    def effect(self):
        # In groups too; the parts of a text have fills of their own.
        shapes = [shape for shape in self.svg.selection.get(inkex.ShapeElement) if not isinstance(shape, inkex.Group)]
        if not shapes:
            raise inkex.AbortExtension("Select the objects whose fill is to be picked.")
        picked = pick(next(filter(None, map(plain_fill, shapes)), None))
        if picked:
            for shape in shapes:
                shape.style["fill"] = picked


def plain_fill(shape):
    """#rrggbb; None for gradients, patterns and what has no fill."""
    try:
        fill = inkex.Color(str(shape.specified_style().get("fill", "black")))
        return "#{:02x}{:02x}{:02x}".format(*fill.to_rgb()) if fill else None
    except (inkex.ColorError, NotImplementedError, IndexError):
        return None


def pick(offered):
    """What the picker returned as #rrggbb; None where that is what was offered."""
    try:
        done = subprocess.run(
            ["chromalog", *(["--color", offered] if offered else [])], capture_output=True, encoding="utf-8", check=False)
    except OSError as error:
        raise inkex.AbortExtension(f"chromalog cannot be started: {error.strerror}") from None
    if done.returncode > 1:
        raise inkex.AbortExtension(done.stderr.strip() or f"chromalog ended with {done.returncode}")
    return done.stdout.strip() if done.returncode == 0 else None


if __name__ == "__main__":
    PickFill().run()
