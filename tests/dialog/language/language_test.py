#!/usr/bin/env python3
"""language_test.py PROGRAM SAMPLES SENTENCE - one test of the dialog in a language.

Runs on the display it finds.
"""

import collections
import functools
import os
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
from drive import Dialog, check, equal, picture_of, run_once, wait_for  # noqa: E402
from sentences import TESTS, main, test  # noqa: E402

PROGRAM, SAMPLES = sys.argv[1], sys.argv[2]
PPD = SAMPLES + "/sample-tape-features.ppd"

# The window's buttons, the title beside the presets and the chosen one; captions of the panel; the
# first line of --help, its words for --help, and the margin in --list.
Words = collections.namedtuple("Words", "code print cancel presets defaults captions usage help "
                                        "margin")
LANGUAGES = {
    "German": Words("de", "Drucken", "Abbrechen", "Voreinstellung:", "Standardeinstellungen",
                    ("Bandbreite : ", "Rand : "), "Aufruf: {}", "diesen Text anzeigen",
                    "Rand: 1 - 50 mm"),
    "Spanish": Words("es", "Imprimir", "Cancelar", "Preajustes:", "Ajustes predeterminados",
                     ("Ancho de la cinta : ", "Margen : "), "Uso: {}", "mostrar este texto",
                     "Margen: 1 - 50 mm"),
    "French": Words("fr", "Imprimer", "Annuler", "Préréglages\u00a0:", "Réglages par défaut",
                    ("Largeur du ruban : ", "Marge : "), "Utilisation\u00a0: {}",
                    "afficher ce texte", "Marge\u00a0: 1 - 50 mm"),
    "Italian": Words("it", "Stampa", "Annulla", "Preimpostazioni:", "Impostazioni predefinite",
                     ("Larghezza del nastro : ", "Margine : "), "Uso: {}", "mostrare questo testo",
                     "Margine: 1 - 50 mm"),
    "Dutch": Words("nl", "Afdrukken", "Annuleren", "Voorinstelling:", "Standaardinstellingen",
                   ("Tapebreedte : ", "Marge : "), "Gebruik: {}", "deze tekst tonen",
                   "Marge: 1 - 50 mm"),
    "Portuguese": Words("pt", "Imprimir", "Cancelar", "Predefinições:", "Definições por omissão",
                        ("Largura da fita : ", "Margem : "), "Utilização: {}",
                        "mostrar este texto", "Margem: 1 - 50 mm"),
    "Japanese": Words("ja", "印刷", "キャンセル", "プリセット:", "デフォルトの設定",
                      ("テープ幅 : ", "余白 : "), "使い方: {}", "このヘルプを表示する",
                      "余白: 1 - 50 mm"),
    "Korean": Words("ko", "인쇄", "취소", "사전 설정:", "기본 설정",
                    ("테이프 폭 : ", "여백 : "), "사용법: {}", "이 도움말을 표시",
                    "여백: 1 - 50 mm"),
    "SimplifiedChinese": Words("zh_CN", "打印", "取消", "预设：", "默认设置",
                               ("标签带宽度 : ", "页边距 : "), "用法：{}", "显示此帮助",
                               "页边距：1 - 50 mm"),
    "TraditionalChinese": Words("zh_TW", "列印", "取消", "設定組：", "預設值",
                                ("標籤帶寬度 : ", "邊界 : "), "用法：{}", "顯示此說明",
                                "邊界：1 - 50 mm"),
}


# A locale that may not be installed, and that LANGUAGE overrules.  Nobody listens at port 1: no test
# here may meet the machine's own print server.
def surroundings(code):
    return {"LC_ALL": "en_US.UTF-8", "LANGUAGE": code, "CUPS_SERVER": "127.0.0.1:1"}


def opened(code):
    return Dialog(PROGRAM, "--appearance", "light", "--ppd", PPD, environment=surroundings(code))


def is_spoken(words):
    with opened(words.code) as dialog:
        dialog.wait("Print", words.print)
        dialog.wait("Cancel", words.cancel)
        for text in (words.presets, *words.captions):
            wait_for(lambda: any(c.text == text for c in dialog.all("NSTextField")), repr(text))
        dialog.wait("Presets", words.defaults)

    answered = {**surroundings(words.code), "DISPLAY": ""}
    status, output, errors = run_once(PROGRAM, "--help", environment=answered)
    equal((status, errors), (0, ""), "status and errors of --help")
    lines = output.splitlines()
    equal(lines[0], words.usage.format("tape-print [OPTION]... [FILE]"), "first line of --help")
    check("--help                " + words.help in map(str.strip, lines), output)
    _, output, _ = run_once(PROGRAM, "--list", "--printer", "sample-tape-features", "--ppd", PPD,
                            environment=answered)
    check(words.margin in map(str.strip, output.splitlines()), output)


@test
def the_buttons_have_the_letters_of_their_language():
    """Print has two letters in both, and without a font for them both would show the same."""
    seen = []
    for name in ("Korean", "SimplifiedChinese"):
        with opened(LANGUAGES[name].code) as dialog:
            button = dialog.wait("Print", LANGUAGES[name].print)
            wait_for(lambda: dialog.all("Label Picture")[0].text, "the label")
            seen.append((button[1:5], picture_of(button)))
    equal(seen[0][0], seen[1][0], "place of the button")
    check(seen[0][1] != seen[1][1], "two languages have one picture of Print")


for name, words in LANGUAGES.items():
    TESTS[name + "IsSpokenByTheWindowThePanelAndTheAnswers"] = functools.partial(is_spoken, words)


if __name__ == "__main__":
    main()
