"""Reads a catalogue of messages."""
import ast
import re
import subprocess


def entradas(arquivo):
    """Each message but the head: its forms in English, its forms in the other language, and whether it is fuzzy."""
    texto = subprocess.run(["msgcat", "--no-wrap", "--no-location", arquivo], check=True, capture_output=True,
                           text=True, encoding="utf-8").stdout
    for bloco in texto.split("\n\n"):
        formas = {"msgid": [], "msgstr": []}
        for nome, literais in re.findall(r'^(msgid|msgstr)(?:_plural|\[\d\])? ((?:".*"\n?)+)', bloco, re.M):
            formas[nome].append("".join(ast.literal_eval(l) for l in literais.splitlines()))
        if formas["msgid"] and formas["msgid"][0]:
            yield formas["msgid"], formas["msgstr"], bool(re.search(r"^#,.*\bfuzzy\b", bloco, re.M))


def mensagens(arquivo):
    return [forma for ingles, _, _ in entradas(arquivo) for forma in ingles]
