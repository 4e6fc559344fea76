"""Help pages: tags close, links and anchors exist, every page leads to all, and the program says what <samp> quotes."""
import re
from html.parser import HTMLParser
from pathlib import Path

HELP = Path(__file__).resolve().parents[1] / "docs/help"
SOURCE = "\n".join(path.read_text("utf-8") for end in ("h", "cpp", "rc") for path in HELP.glob(f"../../src/**/*.{end}"))
LITERALS = re.findall(r'"((?:[^"\\\n]|\\.)*)"', re.sub(r'"\s*\n\s*"', "", SOURCE))
SAID = {part.replace("&", "").strip() for text in LITERALS for part in re.split(r"\\[rnt]|%", text)}

class Page(HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.open, self.ids, self.links, self.faults = [], {""}, set(), []
        self.feed(path.read_text("utf-8"))
        self.faults += [f"<{tag}> is not closed" for tag in self.open]

    def handle_starttag(self, tag, attributes):
        values = {"id": "", "href": "#", **dict(attributes)}
        self.ids.add(values["id"])
        self.links.add(values["href"])
        self.open += [tag] if tag not in ("meta", "link") else []

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.faults.append(f"</{tag}> closes nothing, line {self.getpos()[0]}")

    def handle_data(self, data):
        if self.open[-1:] == ["samp"] and not {data, re.sub("^Quillon( - Manual Mode)? ", "", data)} & SAID:
            self.faults.append(f"the program never says {data!r}")

pages = {path.name: Page(path) for path in sorted(HELP.glob("*.html"))}
for name, page in pages.items():
    links = {link: link.partition("#") for link in page.links}
    page.faults += [f"leads nowhere: {link}" for link, (to, _, at) in links.items()
                    if not (HELP / to).exists() or at and at not in pages[to or name].ids]
    page.faults += [f"does not lead to {other}" for other in pages.keys() - page.links]
raise SystemExit("\n".join(f"{name}: {fault}" for name, page in pages.items() for fault in page.faults) or not pages)
