#!/usr/bin/env python3
"""Draws docs/architecture.svg on standard output: the folders of the project, and who uses whom."""

# Box: x, y, width, height, title, text, fill.
BOXES = {
    "tools": (20, 20, 210, 56, "tools/", "tolvane, loads at run time", "#eef2f6"),
    "tests": (530, 20, 210, 56, "tests/, benchmarks/", "may use everything", "#eef2f6"),
    "plugin": (250, 110, 260, 56, "plugin/", "the lid: list, names, factory", "#ffe9cc"),
    "version": (560, 110, 180, 56, "version/", "which build this is", "#ffe9cc"),
    "types": (20, 110, 180, 56, "types/", "one page per record", "#ffe9cc"),
    "translation": (250, 200, 260, 56, "translation/", "registry, dispatch", "#dcebdc"),
    "convert": (250, 280, 120, 56, "convert/", "the walks", "#dcebdc"),
    "attributes": (390, 280, 120, 56, "attributes/", "ports", "#dcebdc"),
    "record": (20, 280, 180, 56, "record/", "what a page is", "#dcebdc"),
    "graph": (20, 390, 180, 56, "graph/ (Pelmor)", "interface and stand-in", "#e3e6ef"),
    "host": (250, 390, 260, 56, "host/ (OpenVornik)", "interface and stand-in", "#e3e6ef"),
    "executor": (540, 390, 200, 56, "executor/ (TavrikGraph)", "interface and stand-in", "#e3e6ef"),
}
ARROWS = [
    ("plugin", "types"), ("plugin", "translation"), ("plugin", "version"), ("types", "record"),
    ("translation", "convert"), ("translation", "attributes"), ("convert", "record"),
    ("record", "graph"), ("convert", "host"), ("attributes", "host"),
    ("translation", "executor"), ("executor", "host"),
]
WIDTH, HEIGHT = 760, 500


def border(box, toward):
    """Where the line between the centres of two boxes leaves the first."""
    x, y, width, height = box[:4]
    centre_x, centre_y = x + width / 2, y + height / 2
    dx = toward[0] + toward[2] / 2 - centre_x
    dy = toward[1] + toward[3] / 2 - centre_y
    scale = min(width / 2 / abs(dx) if dx else 9, height / 2 / abs(dy) if dy else 9)
    return centre_x + dx * scale, centre_y + dy * scale


def main():
    print(f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" '
          'font-family="system-ui, sans-serif" font-size="13" text-anchor="middle">')
    print('<defs><marker id="tip" viewBox="0 0 8 8" refX="7" refY="4" markerWidth="7" '
          'markerHeight="7" orient="auto"><path d="M0 0L8 4L0 8z" fill="#52606d"/></marker></defs>')
    print(f'<rect width="{WIDTH}" height="{HEIGHT}" rx="8" fill="#ffffff"/>')
    print('<rect x="10" y="190" width="510" height="156" rx="8" fill="none" stroke="#7ba37b" '
          'stroke-dasharray="5 4"/>')
    print('<text x="182" y="222" fill="#4d7a4d">the generic half,</text>')
    print('<text x="182" y="242" fill="#4d7a4d">Tolvane::Translation</text>')
    for source, target in ARROWS:
        (x1, y1), (x2, y2) = (border(BOXES[source], BOXES[target]),
                              border(BOXES[target], BOXES[source]))
        print(f'<path d="M{x1:.1f} {y1:.1f}L{x2:.1f} {y2:.1f}" stroke="#52606d" fill="none" '
              'marker-end="url(#tip)"/>')
    for x, y, width, height, title, text, fill in BOXES.values():
        print(f'<rect x="{x}" y="{y}" width="{width}" height="{height}" rx="6" fill="{fill}" '
              'stroke="#9aa5b1"/>')
        print(f'<text x="{x + width / 2}" y="{y + 24}" fill="#1f2933" font-weight="600">{title}'
              '</text>')
        print(f'<text x="{x + width / 2}" y="{y + 43}" fill="#52606d">{text}</text>')
    print(f'<text x="{WIDTH / 2}" y="{HEIGHT - 20}" fill="#52606d">An arrow points to what is '
          'used. All of the product but version/ may use graph/; host/ and graph/ know nothing of it.'
          '</text>')
    print("</svg>")


if __name__ == "__main__":
    main()
