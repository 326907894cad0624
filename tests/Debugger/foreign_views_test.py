# SPDX-License-Identifier: MIT
"""What gdb shows of the values in foreign-debuggee.cpp, with the views in the folder of the environment
variable VIEWS. Run by gdb."""

import os

import gdb

SHOWN = {
    "id": "{number = 1}",
    "guid": "{number = 2}",
    "group": "{<Tarvik::NameInterface> = {letter = 65 'A'}, m_members = {number = 3}, m_id = {number = 4}}",
    "command": "{<Tarvik::CommandBase> = {text = 66 'B'}, m_newName = 5}",
    "macro": "{<Tarvik::CommandBase> = {text = 67 'C'}, held = 6}",
}


def main():
    for library in ("Identifier", "HighLevelServices", "CommandPattern"):
        gdb.execute("source %s/TKMService_%s-gdb.py" % (os.environ["VIEWS"], library))
    gdb.execute("break stop")
    gdb.execute("run")
    for variable, expected in SHOWN.items():
        shown = gdb.parse_and_eval(variable).format_string()
        assert shown == expected, shown


try:
    main()
except Exception as error:  # or gdb would end with success
    print(error)
    gdb.execute("quit 1")
