"""What an installation of the build holds and does.

usage: packaging_test.py BUILD-FOLDER SENTENCE
"""

import gzip
import os
import pathlib
import subprocess
import sys
import tempfile

BUILD = pathlib.Path(sys.argv[1])
SOURCE = pathlib.Path(__file__).parents[2]
LANGUAGES = "de es fr it ja ko nl pt zh_CN zh_TW".split()


def output_of(*command, **environment):
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True,
                          env={**os.environ, **environment}, timeout=200)
    assert done.returncode == 0, f"{command}: {done.returncode}\n{done.stdout}{done.stderr}"
    return done.stdout


def install(folder):
    prefix = pathlib.Path(folder) / "prefix"
    output_of("cmake", "--install", BUILD, "--prefix", prefix)
    return prefix


def AnInstallationUnderAPrefixPrintsInAnyLanguage(folder):
    prefix = install(folder)
    program = prefix / "bin/tape-print"
    assert output_of(program, "--version").startswith("tape-print ")
    for locale, word, line in (("C.UTF-8", "Printed into", "Margin: 3.0mm"),
                               ("de_DE.UTF-8", "gedruckt", "Rand: 3.0mm"),
                               ("ja_JP.UTF-8", "印刷しました", "余白: 3.0mm")):
        out = pathlib.Path(folder) / locale
        answer = output_of(program, "--print-at-once", "--output", out, LC_ALL=locale, LANG=locale)
        assert word in answer, answer  # the program's own words; the summary has the panel's
        summary = (out / "job-1/summary").read_text()
        assert line in summary.splitlines(), summary
        assert "VnMargin=3.0" in (out / "job-1/options").read_text().splitlines()


def AnInstallationHasTheManualAndTheCompletionsWhereTheyAreLookedFor(folder):
    share = install(folder) / "share"
    packed = (share / "man/man1/tape-print.1.gz").read_bytes()
    assert gzip.decompress(packed) == (SOURCE / "docs/man/tape-print.1").read_bytes()
    for name, source in (("bash-completion/completions/tape-print", "tape-print.bash"),
                         ("zsh/site-functions/_tape-print", "_tape-print")):
        written = (SOURCE / "packaging/completion" / source).read_bytes()
        assert (share / name).read_bytes() == written, name
        assert (share / name).stat().st_mode & 0o777 == 0o644, name


def AnInstallationNamesNoPlaceOfTheBuild(folder):
    prefix = install(folder)
    shared = [path for path in prefix.rglob("*")
              if path.is_file() and path.read_bytes()[:4] == b"\x7fELF"]
    assert len(shared) == 4, shared
    for path in shared:
        for line in output_of("readelf", "-d", path).splitlines():
            if "RUNPATH" in line or "RPATH" in line:
                for place in line.split("[")[1].rstrip("]").split(":"):
                    assert place.startswith("$ORIGIN"), line


def TheDebianPackageHasEveryPartAndItsNeeds(folder):
    output_of("cpack", "--config", BUILD / "CPackConfig.cmake", "-B", folder)
    package, = pathlib.Path(folder).glob("*.deb")
    inside = {line.split()[5] for line in output_of("dpkg-deb", "-c", package).splitlines()}
    wanted = ["bin/tape-print", "lib/page-settings/libPageSettingsPlatform.so",
              "lib/page-settings/tape-print-picture",
              "lib/GNUstep/Bundles/PageSettings.plugin/PageSettings",
              "lib/GNUstep/Bundles/PageSettings.plugin/Resources/PageSettingPDE.xib",
              "share/applications/tape-print.desktop", "share/doc/page-settings/changelog.gz",
              "share/doc/page-settings/copyright", "share/page-settings/samples/sample-tape.ppd",
              "share/icons/hicolor/scalable/apps/tape-print.svg", "share/man/man1/tape-print.1.gz",
              "share/bash-completion/completions/tape-print",
              "share/zsh/vendor-completions/_tape-print",
              *(f"share/locale/{name}/LC_MESSAGES/tape-print.mo" for name in LANGUAGES)]
    missing = [name for name in wanted if f"./usr/{name}" not in inside]
    assert not missing, missing
    needs = output_of("dpkg-deb", "-f", package, "Depends")
    for name in ("gnustep-back0.29-cairo", "fonts-wqy-microhei", "libgnustep-gui0.29", "libcups2"):
        assert name in needs, needs


def TheDesktopEntryIsValidAndItsIconIsThere(folder):
    share = install(folder) / "share"
    entry = share / "applications/tape-print.desktop"
    output_of("desktop-file-validate", entry)
    keys = dict(line.split("=", 1) for line in entry.read_text().splitlines() if "=" in line)
    assert keys["Exec"].split()[0] == "tape-print"
    for language in LANGUAGES:
        assert keys[f"Name[{language}]"] != keys["Name"], language
    for icon in ("scalable/apps/{}.svg", "32x32/apps/{}.png", "48x48/apps/{}.png",
                 "128x128/apps/{}.png"):
        assert (share / "icons/hicolor" / icon.format(keys["Icon"])).is_file(), icon


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as room:
        globals()[sys.argv[2]](room)
