# SPDX-License-Identifier: MIT
"""How gdb shows commands. gdb loads this file along with the library beside it."""

import gdb
import gdb.printing

COMMAND_BASE = "Tarvik::CommandBase"


def plain_type(value):
    return value.type.strip_typedefs().unqualified()


def is_command(class_type):
    """Whether it is CommandBase or derives from it."""
    return class_type.code == gdb.TYPE_CODE_STRUCT and (
        class_type.name == COMMAND_BASE
        or any(is_command(base.type.strip_typedefs()) for base in class_type.fields() if base.is_base_class)
    )


def field_of(value, name):
    """The field, or None for the class of a platform that has no such field."""
    try:
        return value[name]
    except gdb.error:
        return None


def parts_of(value):
    """What the standard library's own view lists of a container or a pointer."""
    view = gdb.default_visualizer(value)
    return [part for _, part in view.children()] if hasattr(view, "children") else []


def commands_at(value):
    """The commands that a shared pointer points to, or those in a container."""
    name = plain_type(value).name or ""
    if name.startswith("std::shared_ptr<"):
        for pointer in parts_of(value):
            if pointer and is_command(plain_type(pointer.dereference())):
                yield pointer.dereference()
    elif name.startswith("std::") and "std::shared_ptr<" + COMMAND_BASE in name:
        for pointer in parts_of(value):
            yield from commands_at(pointer)


def members_of(value):
    """The members in the order of their declaration, those of a base class first. A command replaces
    the pointer to it."""
    for field in value.type.strip_typedefs().fields():
        if not hasattr(field, "bitpos") or field.artificial:  # static, or the virtual table
            continue
        if field.is_base_class:
            if field.type.name != COMMAND_BASE:
                yield from members_of(value[field])
            continue
        name = field.name.removeprefix("m_")
        commands = list(commands_at(value[field]))
        if len(commands) == 0:
            yield name, value[field]
        elif plain_type(value[field]).name.startswith("std::shared_ptr<"):
            yield name, commands[0]
        else:
            for index, command in enumerate(commands):
                yield "%s[%d]" % (name, index), command


class CommandPrinter:
    """The class and the description, then the command's members."""

    def __init__(self, value):
        # A command is usually looked at through its base.
        self._value = value.cast(value.dynamic_type)

    def to_string(self):
        return "%s %s" % (plain_type(self._value).name.replace("Tarvik::", ""), self.description())

    def description(self):
        own = self._value["m_description"].format_string()
        if own == '""' and plain_type(self._value).name == "Tarvik::MacroCommand":
            held = field_of(self._value, "m_commands")
            for command in commands_at(held) if held is not None else ():
                return CommandPrinter(command).description()
        return own

    def children(self):
        return members_of(self._value)


class HistoryPrinter:
    """The entries and the other members of a history. The entries are part of a list of their own."""

    def __init__(self, value):
        self._value = value

    def to_string(self):
        return "CommandHistory"

    def children(self):
        entries = self._value["m_entries"]
        for index, command in enumerate(commands_at(entries["m_commands"])):
            yield "entries[%d]" % index, command
        for name in "position", "cleanPosition":
            yield name, entries["m_" + name]
        for name, value in members_of(self._value):
            if name != "entries":
                yield name, value


class CommandPrinters(gdb.printing.PrettyPrinter):
    """Takes every command of this namespace, also those of libraries that are loaded later. Leaves the
    classes of a platform with other fields to gdb's own view."""

    def __init__(self):
        super().__init__("TKMService_CommandPattern")

    def __call__(self, value):
        class_type = plain_type(value)
        if not (class_type.name or "").startswith("Tarvik::"):
            return None
        if class_type.name == "Tarvik::CommandHistory":
            return HistoryPrinter(value)
        if is_command(class_type) and field_of(value, "m_description") is not None:
            return CommandPrinter(value)
        return None


gdb.printing.register_pretty_printer(gdb.current_objfile(), CommandPrinters(), replace=True)
