#!/usr/bin/python3
"""Turns the manual's Markdown pages into HTML.

Usage: build-manual.py SOURCE-FOLDER IMAGE-FOLDER OUTPUT-FOLDER [--stats]

SOURCE-FOLDER holds contents.txt (the pages in reading order, one file name a line),
the pages (*.md) and manual.css. Every page becomes PAGE.html in OUTPUT-FOLDER with the
same frame: the manual's title, links to the contents and the search page, and to the
pages before and after it. Links between pages are written to the .md files, so the
sources read well on their own; they become links to the .html files. Pictures are
written as images/NAME.png and are copied from IMAGE-FOLDER. index.md holds the marker
{{contents}}, where the table of contents of every page goes. search.html is made from
the pages' headings: every topic and every message (a heading that starts with a double
quote) with a link to it, plus the terms named in comments <!-- index: a; b -->, which
belong to the heading above them. The output is the same for the same sources, so a
build that changed nothing rewrites nothing that matters.

Needs python3-markdown (Debian's package; scripts/install-deps.sh installs it).
"""

import html
import os
import re
import shutil
import sys

try:
    import markdown
except ImportError:
    sys.exit("build-manual.py: the Python module markdown is missing "
             "(Debian: apt-get install python3-markdown)")

EXTENSIONS = ["tables", "fenced_code", "toc", "attr_list", "sane_lists", "def_list"]
EXTENSION_CONFIGS = {"toc": {"permalink": False}}

TEMPLATE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{title} - Tessaro manual</title>
<link rel="stylesheet" href="manual.css">
</head>
<body>
<header class="manual-bar">
<a class="manual-name" href="index.html">Tessaro manual</a>
<nav>{navigation}</nav>
</header>
<main>
{body}
</main>
<footer class="manual-bar">
<nav>{navigation}</nav>
</footer>
</body>
</html>
"""

SEARCH_SCRIPT = """<script>
// Hides the entries that do not hold the typed text; without scripts the page is a
// plain list that the browser's own Find searches.
(function () {
  var box = document.getElementById('filter');
  box.hidden = false;
  box.addEventListener('input', function () {
    var words = box.value.toLowerCase().split(/\\s+/).filter(Boolean);
    document.querySelectorAll('.search-list li').forEach(function (item) {
      var text = item.textContent.toLowerCase();
      item.hidden = !words.every(function (w) { return text.indexOf(w) >= 0; });
    });
  });
})();
</script>"""

INDEX_COMMENT = re.compile(r"<!--\s*index:(.*?)-->", re.S)
HEADING = re.compile(r"<h([1-6])([^>]*)\bid=\"([^\"]+)\"[^>]*>(.*?)</h\1>", re.S)
TAG = re.compile(r"<[^>]+>")
PAGE_LINK = re.compile(r'href="([A-Za-z0-9_-]+)\.md(#[^"]*)?"')
PICTURE = re.compile(r'src="images/([^"/]+)"')


def plain(fragment):
    """The text of an HTML fragment, without tags and entities."""
    return html.unescape(TAG.sub("", fragment)).strip()


class Page:
    def __init__(self, source_folder, name):
        self.name = name
        self.html_name = name[:-3] + ".html"
        with open(os.path.join(source_folder, name), encoding="utf-8") as f:
            self.markdown = f.read()
        converter = markdown.Markdown(extensions=EXTENSIONS,
                                      extension_configs=EXTENSION_CONFIGS)
        body = converter.convert(self.markdown)
        body = PAGE_LINK.sub(lambda m: 'href="%s.html%s"' % (m.group(1), m.group(2) or ""),
                             body)
        self.body = body
        self.headings = []  # (level, id, text, [index terms])
        for match in HEADING.finditer(body):
            self.headings.append((int(match.group(1)), match.group(3),
                                  plain(match.group(4)), []))
        if not self.headings or self.headings[0][0] != 1:
            sys.exit("build-manual.py: %s does not start with a '# Title' line" % name)
        self.title = self.headings[0][2]
        self._attach_index_terms()

    def _attach_index_terms(self):
        positions = [m.start() for m in HEADING.finditer(self.body)]
        for comment in INDEX_COMMENT.finditer(self.body):
            owner = 0
            for i, position in enumerate(positions):
                if position < comment.start():
                    owner = i
            terms = [t.strip() for t in comment.group(1).split(";") if t.strip()]
            self.headings[owner][3].extend(terms)
        self.body = INDEX_COMMENT.sub("", self.body)

    def pictures(self):
        return sorted(set(PICTURE.findall(self.body)))

    def words(self):
        return len(plain(self.body).split())


def navigation(pages, index):
    links = ['<a href="index.html">Contents</a>', '<a href="search.html">Search</a>']
    if index is not None and index > 0:
        before = pages[index - 1]
        links.append('<a rel="prev" href="%s">&larr; %s</a>'
                     % (before.html_name, html.escape(before.title)))
    if index is not None and index + 1 < len(pages):
        after = pages[index + 1]
        links.append('<a rel="next" href="%s">%s &rarr;</a>'
                     % (after.html_name, html.escape(after.title)))
    return " ".join(links)


def contents(pages):
    """The table of contents: every page after the index with its sections."""
    lines = ['<ol class="contents">']
    for page in pages[1:]:
        lines.append('<li><a href="%s">%s</a>' % (page.html_name, html.escape(page.title)))
        sections = [h for h in page.headings if h[0] == 2]
        if sections:
            lines.append("<ul>")
            for _, anchor, text, _ in sections:
                lines.append('<li><a href="%s#%s">%s</a></li>'
                             % (page.html_name, anchor, html.escape(text)))
            lines.append("</ul>")
        lines.append("</li>")
    lines.append("</ol>")
    return "\n".join(lines)


def is_message(text):
    return text.startswith('"') or text.startswith("\u201c")


def search_page(pages):
    topics, messages = [], []
    for page in pages:
        for level, anchor, text, terms in page.headings:
            target = page.html_name + ("" if level == 1 else "#" + anchor)
            entry = (text, target, page.title)
            (messages if is_message(text) else topics).append(entry)
            for term in terms:
                topics.append((term, target, page.title if level == 1 else text))

    def entries(items):
        seen = set()
        lines = ['<ul class="search-list">']
        for text, target, where in sorted(items, key=lambda e: (e[0].strip('"').lower(), e[1])):
            if (text, target) in seen:
                continue
            seen.add((text, target))
            lines.append('<li><a href="%s">%s</a> <span class="where">(%s)</span></li>'
                         % (target, html.escape(text), html.escape(where)))
        lines.append("</ul>")
        return "\n".join(lines)

    body = "\n".join([
        '<h1 id="search">Search</h1>',
        "<p>Every topic of the manual and every message Tessaro can show, each with a "
        "link to where it is explained. Type a word to keep only the entries that hold "
        "it, or use your browser's Find.</p>",
        '<p><input id="filter" type="search" placeholder="Words to look for" '
        'aria-label="Words to look for" hidden></p>',
        '<h2 id="messages">Messages</h2>',
        entries(messages),
        '<h2 id="topics">Topics</h2>',
        entries(topics),
        SEARCH_SCRIPT,
    ])
    return body


def write(path, text):
    with open(path, "w", encoding="utf-8", newline="\n") as f:
        f.write(text)


def main(argv):
    arguments = [a for a in argv[1:] if a != "--stats"]
    if len(arguments) != 3:
        sys.exit(__doc__.split("\n\n")[1])
    source, images, output = arguments
    with open(os.path.join(source, "contents.txt"), encoding="utf-8") as f:
        names = [line.strip() for line in f if line.strip() and not line.startswith("#")]
    if not names or names[0] != "index.md":
        sys.exit("build-manual.py: contents.txt must start with index.md")
    pages = [Page(source, name) for name in names]

    os.makedirs(os.path.join(output, "images"), exist_ok=True)
    for index, page in enumerate(pages):
        body = page.body.replace("<p>{{contents}}</p>", contents(pages))
        write(os.path.join(output, page.html_name),
              TEMPLATE.format(title=html.escape(page.title),
                              navigation=navigation(pages, index), body=body))
    write(os.path.join(output, "search.html"),
          TEMPLATE.format(title="Search", navigation=navigation(pages, None),
                          body=search_page(pages)))
    shutil.copyfile(os.path.join(source, "manual.css"), os.path.join(output, "manual.css"))
    # A page taken out of contents.txt leaves no page behind to be installed.
    written = {page.html_name for page in pages} | {"search.html"}
    for name in os.listdir(output):
        if name.endswith(".html") and name not in written:
            os.remove(os.path.join(output, name))

    pictures = sorted({name for page in pages for name in page.pictures()})
    for name in pictures:
        picture = os.path.join(images, name)
        if not os.path.isfile(picture):
            sys.exit("build-manual.py: the picture %s is missing" % picture)
        shutil.copyfile(picture, os.path.join(output, "images", name))
    # Pictures that no page shows any more go, so the folder holds what the pages use.
    for name in os.listdir(os.path.join(output, "images")):
        if name not in pictures:
            os.remove(os.path.join(output, "images", name))

    if "--stats" in argv:
        print("%d pages (and the search page), %d pictures, %d words"
              % (len(pages), len(pictures), sum(page.words() for page in pages)))


if __name__ == "__main__":
    main(sys.argv)
