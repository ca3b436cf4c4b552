"""Makes what package.sh ships, out of a stripped module and the texts. The same input gives the same bytes: archives
hold their entries in the order of their names, all with the time of the commit.

usage: make_package.py STAGE DIST VERSION EPOCH SITE ADDRESS
STAGE holds the zip's files, but for the sums and the manual, of which it holds manual.md; EPOCH is the commit's time; ADDRESS
is where the module will be downloaded from."""

import hashlib
import re
import shutil
import subprocess
import sys
import time
import zipfile
from pathlib import Path
from xml.sax.saxutils import escape, quoteattr

MODULE = "reaper_quilmo.dll"
AUTHOR = "the Quilmo authors"
ABOUT = (
    "Quilmo para o REAPER, 64-bit Windows: reaper_quilmo.dll.\n"
    "Painel de edição de fala e Auto Fatiador, que corta silêncios com prévia. A ação é \"Quilmo: Abrir Painel\", tecla A.\n"
    "Abrir o painel desliga o encaixe (snap), as linhas da grade e a pergunta ao fim da gravação.\n"
    "Software livre, sob a licença MIT."
)

INDEX = """<?xml version="1.0" encoding="utf-8"?>
<index version="1" name="Quilmo">
  <category name="Extensions">
    <reapack name="reaper_quilmo.ext" type="extension" desc="Quilmo">
      <metadata>
        <description><![CDATA[{about}]]></description>
        <link rel="website">{site}</link>
      </metadata>
      <version name={version} author={author} time={time}>
        <changelog><![CDATA[{changes}]]></changelog>
        <source platform="win64" file={module}>{address}</source>
      </version>
    </reapack>
  </category>
</index>
"""


def rtf(text):
    text = re.sub(r"([\\{}])", r"\\\1", text).replace("\n", "\\par\n")
    return "{\\rtf1\\ansi\n" + "".join(c if ord(c) < 128 else f"\\u{ord(c)}?" for c in text) + "\n}"


def changes_of(news, version):
    """What users are told of the version: what stands below its line "VERSION (DATE)", up to the next such line."""
    sections = dict(re.findall(r"^(\d+\.\d+\.\d+) \([^)]*\)\n(.*?)(?=^\d+\.\d+\.\d+ |\Z)", news, re.M | re.S))
    return sections.get(version, "").strip()


def write_manual(text, docs, folder):
    """The manual as a page for the browser, which is what users have; its headings are places to link to."""
    page = subprocess.run(
        ["cmark-gfm", "--extension", "table", text], check=True, capture_output=True, encoding="utf-8"
    ).stdout

    def heading(match):
        place = re.sub(r"[^\w\- ]", "", re.sub(r"<[^>]*>", "", match[2]).lower()).replace(" ", "-")
        return f'<h{match[1]} id="{place}">{match[2]}</h{match[1]}>'

    page = re.sub(r"<h(\d)>(.*?)</h\1>", heading, page)
    folder.mkdir()
    (folder / "manual.html").write_text((docs / "manual_head.html").read_text("utf-8") + page + "</body></html>\n", "utf-8")
    shutil.copytree(docs / "pictures", folder / "pictures")


def sums(files):
    return "".join(f"{hashlib.sha256(path.read_bytes()).hexdigest()}  {name}\n" for name, path in files)


def pack(archive, files, epoch, top=""):
    with zipfile.ZipFile(archive, "w") as out:
        for name, path in sorted(files):
            entry = zipfile.ZipInfo(top + name, time.gmtime(epoch)[:6])
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.create_system, entry.external_attr = 0, 0x20  # plain files, no permissions of the building machine
            out.writestr(entry, path.read_bytes(), compresslevel=9)


def main(stage, dist, version, epoch, site, address):
    stage, dist, epoch = Path(stage), Path(dist), int(epoch)
    root = Path(__file__).resolve().parent.parent
    write_manual(stage / "manual.md", root / "docs", stage / "manual")
    (stage / "manual.md").unlink()
    folder = lambda: sorted((p.relative_to(stage).as_posix(), p) for p in stage.rglob("*") if p.is_file())
    (stage / "SHA256SUMS.txt").write_text(sums(folder()))
    name = f"reaper_quilmo-{version}-win64"
    pack(dist / f"{name}.zip", folder(), epoch, name + "/")

    info = dist / "reaper-package-info.txt"
    info.write_bytes(
        f"NAME: Quilmo\r\nAUTHOR: {AUTHOR}\r\nVERSION: {version}\r\n"
        f"URL: {site}\r\n"
        f"INFO: 64-bit Windows, {MODULE}; acao \"Quilmo: Abrir Painel\", tecla A; licenca MIT\r\n".encode("ascii")
    )
    pack(dist / f"{name}.ReaperPkg", [(info.name, info), (f"UserPlugins/{MODULE}", stage / MODULE)], epoch)
    info.unlink()

    (dist / "index.xml").write_text(
        INDEX.format(
            about=rtf(ABOUT),
            site=escape(site),
            version=quoteattr(version),
            author=quoteattr(AUTHOR),
            time=quoteattr(time.strftime("%Y-%m-%dT%H:%M:%SZ", time.gmtime(epoch))),
            changes=changes_of((root / "docs/NOVIDADES.txt").read_text("utf-8"), version).replace("]]>", "]] >"),
            module=quoteattr(MODULE),
            address=escape(address),
        ),
        "utf-8",
    )
    shutil.copy(stage / MODULE, dist)  # what the index points to
    files = sorted(p for p in dist.iterdir() if p.is_file() and p.name != "SHA256SUMS.txt")
    (dist / "SHA256SUMS.txt").write_text(sums((p.name, p) for p in files))


if __name__ == "__main__":
    main(*sys.argv[1:])
