"""Where a measurement was made."""
import os
import platform
import re
import subprocess


def _sai(*comando):
    return subprocess.run(comando, check=True, capture_output=True, text=True).stdout


def processador():
    with open("/proc/cpuinfo", encoding="utf-8") as arquivo:
        achado = re.search(r"model name\s*: (.*)", arquivo.read())
    return f"{achado.group(1) if achado else platform.machine()}, {os.cpu_count()} processors"


def compilador(construcao):
    with open(os.path.join(construcao, "CMakeCache.txt"), encoding="utf-8") as arquivo:
        programa = re.search(r"CMAKE_CXX_COMPILER:\w+=(.*)", arquivo.read()).group(1)
    return _sai(programa, "--version").splitlines()[0] + ", Release"


def descreve(construcao, sqlite):
    """Pairs of what and which."""
    carga = os.getloadavg()
    revisao = _sai("git", "describe", "--always", "--dirty").strip()
    return [("Revision", revisao), ("Machine", processador()), ("System", f"{platform.system()} {platform.release()}"),
            ("Compiler", compilador(construcao)), ("SQLite", sqlite),
            ("Load when it began", f"{carga[0]:.1f} (1 minute), {carga[1]:.1f} (5 minutes)")]
