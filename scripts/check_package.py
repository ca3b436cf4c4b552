"""Holds what package.sh made against the rules of those who take it: the package manager's index, the .ReaperPkg, the
zip that users open by hand, and the module itself. Prints every breach; exits 1 if there is one.

usage: check_package.py DIST VERSION"""

import hashlib
import re
import struct
import sys
import xml.etree.ElementTree as ElementTree
import zipfile
from pathlib import Path
from urllib.parse import unquote

MODULE = "reaper_quilmo.dll"
PLATFORMS = set(
    "all windows win32 win64 windows-arm64ec darwin darwin32 darwin64 darwin-arm64 "
    "linux linux32 linux64 linux-armv7l linux-aarch64".split()
)
EXPORTS = {"ReaperPluginEntry", "Quilmo_Teste", "Quilmo_AutoSplit", "Quilmo_AbrirPainel"}
ROOT = Path(__file__).resolve().parent.parent
LICENCE = (ROOT / "LICENSE").read_text("utf-8")

breaches = []


def require(holds, sentence):
    if not holds:
        breaches.append(sentence)


def check_index(text, version):
    index = ElementTree.fromstring(text)
    require(index.tag == "index" and index.get("version") == "1", "index.xml: the root is not <index version=\"1\">")
    require(index.get("name"), "index.xml: the repository has no name")
    packages = []
    for category in index.iter("category"):
        require(category.get("name"), "index.xml: a category has no name")
        packages += category.findall("reapack")
    require(packages, "index.xml: no package in a category")
    for package in packages:
        name, kind = package.get("name"), package.get("type")
        require(name and kind, "index.xml: a package without name or type")
        require(package.findtext("metadata/link[@rel='website']"), f"index.xml: {name} has no website")
        description = package.findtext("metadata/description", "")
        require(description.startswith("{\\rtf1"), f"index.xml: the description of {name} is not RTF")
        require("MIT" in description, f"index.xml: {name} does not tell its licence")
        require("64-bit Windows" in description and MODULE in description, f"index.xml: {name} does not say for what it is")
        versions = package.findall("version")
        require(version in [v.get("name") for v in versions], f"index.xml: {name} lacks version {version}")
        for v in versions:
            where = f"index.xml: version {v.get('name')} of {name}"
            require(re.fullmatch(r"\d+\.\d+\.\d+", v.get("name", "")), f"{where} is not semantic")
            require(re.fullmatch(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ", v.get("time", "")), f"{where}: time is not ISO 8601 in UTC")
            require(v.findtext("changelog", "").strip(), f"{where} tells no changes")
            require(v.findall("source"), f"{where} has no source")
            for source in v.findall("source"):
                require((source.text or "").strip(), f"{where}: a source without an address")
                require(source.get("platform", "all") in PLATFORMS, f"{where}: unknown platform")
                require(kind != "extension" or source.get("file") == MODULE, f"{where}: file is not {MODULE}")
                require(source.get("platform") == "win64", f"{where}: the module is for win64 alone")


def check_archive(path):
    """The archive's texts and bytes by name; entries in order, of one time, nothing of the building machine."""
    with zipfile.ZipFile(path) as archive:
        entries = archive.infolist()
        names = [e.filename for e in entries]
        require(archive.testzip() is None, f"{path.name}: damaged")
        require(names == sorted(set(names)), f"{path.name}: entries out of order")
        require(len({e.date_time for e in entries}) == 1, f"{path.name}: entries of several times")
        require(all(e.external_attr == 0x20 and not e.extra for e in entries), f"{path.name}: entries with attributes")
        return {name: archive.read(name) for name in names}


def check_zip(path, version):
    files = check_archive(path)
    require({name.split("/")[0] for name in files} == {path.stem}, f"{path.name}: not one folder at its top, of its name")
    files = {name.split("/", 1)[-1]: data for name, data in files.items()}
    needed = [MODULE, "LEIA-ME.txt", "NOVIDADES.txt", "SHA256SUMS.txt", "manual/manual.html"]
    missing = [name for name in needed if name not in files]
    require(not missing, f"{path.name}: lacks {missing}")
    licence = "\n".join(files.get("licencas/quilmo.txt", b"").decode("utf-8-sig").splitlines()) + "\n"
    require(licence == LICENCE, f"{path.name}: licencas/quilmo.txt is not the tree's LICENSE")
    require(not any(".debug" in name for name in files), f"{path.name}: holds the debug file")
    for name in ["LEIA-ME.txt", "NOVIDADES.txt", "licencas/LEIA-ME.txt", "manual/manual.html"]:
        text = files.get(name, b"").decode("utf-8-sig")
        opening = text[max(text.find("<body>"), 0) :][:200]
        require("64-bit Windows" in opening and MODULE in opening, f"{name}: does not begin with what it is for")
    for name, text in files.items():
        if name.endswith(".txt") and name != "SHA256SUMS.txt":  # which sha256sum -c reads, too
            require(text.startswith(b"\xef\xbb\xbf"), f"{name}: does not say that it is UTF-8")
            require(text.count(b"\n") == text.count(b"\r\n"), f"{name}: lines that do not end in CRLF")
    require("assinado" in files.get("LEIA-ME.txt", b"").decode(), "LEIA-ME.txt: does not say that the file is unsigned")
    told = dict(reversed(line.split("  ", 1)) for line in files.get("SHA256SUMS.txt", b"").decode().splitlines())
    made = {name: hashlib.sha256(data).hexdigest() for name, data in files.items() if name != "SHA256SUMS.txt"}
    require(told == made, f"{path.name}: the sums do not agree with the files")
    manual = files.get("manual/manual.html", b"").decode()
    for name, data in files.items():
        left = re.findall(rb"@[A-Z]+@", data) if name.endswith((".txt", ".html")) else []
        require(not left, f"{name}: {left} are not filled in")
    require(f"<strong>{version}</strong>" in manual[:2500], "manual.html: does not begin with its version")
    for picture in re.findall(r'<img src="([^"]+)"', manual):
        require(f"manual/{picture}" in files, f"manual.html: shows {picture}, which the zip lacks")
    for trace in ["tecla A", "snap", "grade", "fim da gravação", "quilmo_extension_log.txt", "presets_fatiador.ini",
                  "quilmo_janela.ini", "VELATURNO_PRE"]:
        require(trace in manual, f"manual.html: does not tell of {trace}, which users find changed or left behind")
    places = set(re.findall(r'<h\d id="([^"]+)"', manual))
    for place in re.findall(r'<a href="#([^"]+)"', manual):
        require(unquote(place) in places, f"manual.html: links to {unquote(place)}, which is nowhere")
    return files.get(MODULE, b"")


def check_reaper_pkg(path, module):
    files = check_archive(path)
    info = files.get("reaper-package-info.txt", b"").decode()
    require(re.search(r"^NAME: *\S", info, re.M), f"{path.name}: reaper-package-info.txt has no NAME")
    require(files.get(f"UserPlugins/{MODULE}") == module, f"{path.name}: not the zip's module under UserPlugins")


def exports_of(image, pe):
    """Names in the export table of a 64-bit image, whose PE header begins at `pe`."""
    sections, header_size = struct.unpack_from("<H", image, pe + 6)[0], struct.unpack_from("<H", image, pe + 20)[0]

    def at(rva):
        for n in range(sections):
            size, start, _, raw = struct.unpack_from("<IIII", image, pe + 24 + header_size + 40 * n + 8)
            if start <= rva < start + size:
                return rva - start + raw
        raise ValueError(f"no section holds {rva:#x}")

    table = at(struct.unpack_from("<I", image, pe + 24 + 112)[0])
    count, _, names = struct.unpack_from("<III", image, table + 24)
    text_at = lambda place: image[place : image.index(b"\0", place)].decode()
    return {text_at(at(struct.unpack_from("<I", image, at(names) + 4 * n)[0])) for n in range(count)}


def check_module(image, version):
    pe = struct.unpack_from("<I", image, 60)[0]
    machine, _, stamp = struct.unpack_from("<HHI", image, pe + 4)
    require(machine == 0x8664, f"{MODULE}: not for 64-bit Windows")
    require(stamp == 0, f"{MODULE}: has a time stamp")
    require(b".debug_info" not in image, f"{MODULE}: is not stripped")
    require(exports_of(image, pe) == EXPORTS, f"{MODULE}: exports {sorted(exports_of(image, pe))}")
    wide = lambda text: re.escape(text.encode("utf-16-le"))
    rights = re.search("^Copyright .*", LICENCE, re.M)[0]
    for name, value in [("ProductVersion", version + "\0"), ("LegalCopyright", rights)]:
        told = re.search(wide(name) + rb"(\0\0)+" + wide(value), image)
        require(told, f"{MODULE}: its version resource does not say {value} as its {name}")
    require(not re.search(rb"/(usr|tmp|build|opt|home)/|" + re.escape(str(ROOT).encode()), image),
            f"{MODULE}: holds a path of the building machine")


def check_changelog(text, news, version):
    dates = [re.search(form.format(re.escape(version)), told, re.M)
             for form, told in [(r"^## \[{}\] - (\d{{4}}-\d\d-\d\d)$", text), (r"^{} \((\d{{4}}-\d\d-\d\d)\)$", news)]]
    require(all(dates), f"CHANGELOG.md or NOVIDADES.txt has no dated section for {version}")
    require(not all(dates) or dates[0][1] == dates[1][1], f"CHANGELOG.md and NOVIDADES.txt date {version} differently")


def main(dist, version):
    dist = Path(dist)
    name = f"reaper_quilmo-{version}-win64"
    module = check_zip(dist / f"{name}.zip", version)
    check_reaper_pkg(dist / f"{name}.ReaperPkg", module)
    require((dist / MODULE).read_bytes() == module, f"{MODULE}: not that of the zip")
    check_index((dist / "index.xml").read_text("utf-8"), version)
    check_changelog((ROOT / "CHANGELOG.md").read_text("utf-8"), (ROOT / "docs/NOVIDADES.txt").read_text("utf-8"), version)
    if module:  # else its lack is told already
        check_module(module, version)
    require(str(ROOT).encode() not in (dist / f"{name}.debug").read_bytes(), f"{name}.debug: holds this folder's path")
    for breach in breaches:
        print(breach, file=sys.stderr)
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
