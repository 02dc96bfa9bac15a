#!/usr/bin/env python3
"""Writes what other languages declare of the C interface, from its headers: the module for Fortran
(hosts/c/zelaccess.f90), and docs/c-functions.md with the table of all functions and the declarations
for Julia and C#.

  scripts/make_c_declarations.py           writes the files
  scripts/make_c_declarations.py --check   fails if they are not what it would write
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
HEADERS = ["zel_base.h", "zel_library.h", "zel_search.h", "zel_desk.h"]
FORTRAN = ROOT / "hosts/c/zelaccess.f90"
PAGE = ROOT / "docs/c-functions.md"


class Argument:
    def __init__(self, text, comment):
        self.type, self.name = re.match(r"(.*?)\s*(\w+)$", text.strip()).groups()
        self.type = self.type.replace(" *", "*").strip()
        self.comment = comment
        self.may_be_null = "may be null" in comment and "may be null if" not in comment

    @property
    def base(self):
        return re.sub(r"\bconst\b|\*", "", self.type).strip()

    @property
    def stars(self):
        return self.type.count("*")

    @property
    def is_const(self):
        return re.search(r"\bconst\b", self.type) is not None

    @property
    def is_array(self):
        return self.stars == 1 and self.base in ("double", "int32_t") and self.name.endswith("s")


class Function:
    def __init__(self, group, comment, name, arguments):
        self.group, self.name = group, name
        text = " ".join(line.strip() for line in comment)
        head, *parts = re.split(r"\\(?=param|return)", text)
        self.summary = re.match(r"(.*?[.:])(\s|$)", head.strip()).group(1).rstrip(":.") + "."
        comments = {}
        for part in parts:
            if part.startswith("param"):
                _, who, what = part.split(None, 2)
                comments[who] = what
        listed = [a for a in arguments.split(",") if a.strip() not in ("", "void")]
        self.arguments = [Argument(a, comments.get(a.split()[-1].lstrip("*"), "")) for a in listed]


class Interface:
    """What the headers declare."""

    def __init__(self):
        self.functions, self.structs, self.enums, self.opaque = [], {}, {}, []
        for header in HEADERS:
            self.read((ROOT / "include/zelaccess" / header).read_text())

    def read(self, text):
        self.opaque += re.findall(r"^typedef struct (\w+) \1;", text, re.M)
        for body, name in re.findall(r"^typedef struct \w+ \{\n(.*?)\n\} (\w+);", text, re.M | re.S):
            members = []
            for line in body.splitlines():
                found = re.match(r"\s*(.+?)\s*(\w+)(\[(\d+)\])?;", line.split("///")[0])
                if found:
                    members.append((found[1].replace(" *", "*"), found[2], int(found[4] or 0)))
            self.structs[name] = members
        for name, body in re.findall(r"^enum (\w+) \{\n(.*?)\n\};", text, re.M | re.S):
            self.enums[name] = re.findall(r"(ZEL_\w+) = (\d+)", body)
        group, comment, lines = "", [], iter(text.splitlines())
        for line in lines:
            if line.startswith("/// \\name "):
                group = line[10:]
            elif line.startswith("ZEL_C_API"):
                while not line.endswith(";"):
                    line += " " + next(lines).strip()
                name, arguments = re.match(r"ZEL_C_API zel_status (\w+)\((.*)\);", line).groups()
                self.functions.append(Function(group, comment, name, arguments))
            comment = comment + [line[3:]] if line.startswith("///") else []


# --- Fortran -------------------------------------------------------------------------------------

FORTRAN_NUMBERS = {"int32_t": "integer(c_int32_t)", "uint32_t": "integer(c_int32_t)",
                   "int64_t": "integer(c_int64_t)", "size_t": "integer(c_size_t)",
                   "double": "real(c_double)", "zel_status": "integer(c_int32_t)"}


def fortran_argument(interface, function, argument):
    a = argument
    kept = function.name.startswith("zel_columns_add") and a.name in ("words", "values", "texts")
    by_pointer = "type(c_ptr), value"
    if a.base == "zel_finding_function":
        return f"type(c_funptr), value :: {a.name}"
    if a.base == "void" or kept or a.stars == 1 and a.base in interface.opaque:
        return f"{by_pointer} :: {a.name}"
    if a.base == "char" and a.stars == 2:
        return f"type(c_ptr), intent(in) :: {a.name}(*)"
    if a.base == "char":
        return f"character(kind=c_char), intent({'in' if a.is_const else 'inout'}) :: {a.name}(*)"
    if a.stars == 2:
        return f"{by_pointer} :: {a.name}" if a.may_be_null else f"type(c_ptr), intent(inout) :: {a.name}"
    if a.base in interface.structs:
        pointed = a.is_const or a.may_be_null
        return f"{by_pointer} :: {a.name}" if pointed else f"type({a.base}), intent(inout) :: {a.name}"
    number = FORTRAN_NUMBERS[a.base]
    if a.stars == 0:
        return f"{number}, value :: {a.name}"
    if a.is_array:
        if a.may_be_null:
            return f"{by_pointer} :: {a.name}"
        return f"{number}, intent({'in' if a.is_const else 'inout'}) :: {a.name}(*)"
    return f"{number}, intent(inout) :: {a.name}"


def wrapped(line, indent):
    """A statement on lines of less than 100 characters."""
    lines = []
    while len(line) > 96:
        at = line.rfind(" ", 0, 95)
        lines.append(line[:at] + " &")
        line = " " * (indent + 4) + line[at + 1:]
    return lines + [line]


def fortran_member(kind, name, count):
    if "*" in kind:
        return f"type(c_ptr) :: {name} = c_null_ptr"
    zero = {"double": "0.0_c_double"}.get(kind, "0")
    return f"{FORTRAN_NUMBERS[kind]} :: {name}{f'({count})' if count else ''} = {zero}"


def fortran(interface):
    out = ["! The C interface of ZelAccess for Fortran 2003: zelaccess/zel.h with ISO_C_BINDING. Written by",
           "! scripts/make_c_declarations.py; docs/c-interface.md has an example.",
           "module zelaccess", "  use, intrinsic :: iso_c_binding", "  implicit none", "  public", ""]
    for name, values in interface.enums.items():
        out.append(f"  ! {name}")
        out += [f"  integer(c_int32_t), parameter :: {key} = {value}" for key, value in values]
    for name, members in interface.structs.items():
        out += ["", f"  type, bind(c) :: {name}"]
        out += [f"    {fortran_member(*member)}" for member in members]
        out.append(f"  end type {name}")
    sized = [name for name, members in interface.structs.items() if members[0][1] == "size"]
    out += ["", "  ! The size of a structure in bytes, for its member `size`.", "  interface zel_size"]
    out.append("    module procedure " + ", &\n        ".join(f"size_of_{name}" for name in sized))
    out += ["  end interface zel_size", "", "  interface"]
    for function in interface.functions:
        names = ", ".join(a.name for a in function.arguments)
        out += wrapped(f'    function {function.name}({names}) bind(c, name="{function.name}") '
                       "result(outcome)", 4)
        out.append("      import")
        out += [f"      {fortran_argument(interface, function, a)}" for a in function.arguments]
        out += ["      integer(c_int32_t) :: outcome", f"    end function {function.name}"]
    out += ["  end interface", "", "contains", "",
            "  ! A text for C: without blanks at its end, with a null.",
            "  pure function zel_c(text) result(c)",
            "    character(len=*), intent(in) :: text",
            "    character(kind=c_char, len=len_trim(text) + 1) :: c",
            "    c = trim(text) // c_null_char", "  end function zel_c", "",
            "  ! The text in a buffer that C has filled: up to its null.",
            "  pure function zel_f(buffer) result(text)",
            "    character(kind=c_char, len=*), intent(in) :: buffer",
            "    character(len=:), allocatable :: text",
            "    integer :: end",
            "    end = index(buffer, c_null_char)",
            "    if (end == 0) end = len(buffer) + 1",
            "    text = buffer(:end - 1)", "  end function zel_f"]
    for name in sized:
        out += ["", f"  pure function size_of_{name}(options) result(size_in_bytes)",
                f"    type({name}), intent(in) :: options", "    integer(c_size_t) :: size_in_bytes",
                "    size_in_bytes = size(transfer(options, [c_null_char]), kind=c_size_t)",
                f"  end function size_of_{name}"]
    return "\n".join(out + ["end module zelaccess"]) + "\n"


# --- Julia ---------------------------------------------------------------------------------------

JULIA_NUMBERS = {"int32_t": "Int32", "uint32_t": "UInt32", "int64_t": "Int64", "size_t": "Csize_t",
                 "double": "Cdouble", "zel_status": "Int32"}


def julia_type(interface, a):
    if a.base == "zel_finding_function" or a.base == "void":
        return "Ptr{Cvoid}"
    if a.base == "char":
        return "Ptr{Cstring}" if a.stars == 2 else "Cstring" if a.is_const else "Ptr{UInt8}"
    if a.base in interface.opaque:
        return "Ptr{Cvoid}" if a.stars == 1 else "Ptr{Ptr{Cvoid}}"
    kind = a.base if a.base in interface.structs else JULIA_NUMBERS[a.base]
    return f"Ptr{{{kind}}}" if a.stars else kind


JULIA_WORDS = ("function",)


def constants(interface, line):
    """The enumerators, each as a line of another language."""
    return [line.format(name=name, value=value) for rows in interface.enums.values() for name, value in rows]


def julia(interface):
    out = ['const libzelc = "libZelC"', ""]
    for name, members in interface.structs.items():
        out.append(f"struct {name}")
        for kind, member, count in members:
            found = "Cstring" if kind == "char const*" else "Ptr{Cstring}" if "*" in kind else JULIA_NUMBERS[kind]
            out.append(f"    {member}::{f'NTuple{{{count},{found}}}' if count else found}")
        out.append("end")
    out += constants(interface, "const {name} = Int32({value})")
    for function in interface.functions:
        names = [a.name + "_" * (a.name in JULIA_WORDS) for a in function.arguments]
        typed = ", ".join(f"{name}::{julia_type(interface, a)}" for name, a in zip(names, function.arguments))
        names = ", ".join(names)
        out += [f"{function.name}({names}) =", f"    @ccall libzelc.{function.name}({typed})::Int32"]
    return out


# --- C# ------------------------------------------------------------------------------------------

SHARP_NUMBERS = {"int32_t": "int", "uint32_t": "uint", "int64_t": "long", "size_t": "nuint",
                 "double": "double", "zel_status": "int"}
SHARP_WORDS = ("out", "ref", "in", "checked", "params")


def sharp_argument(interface, function, a):
    name = "@" + a.name if a.name in SHARP_WORDS else a.name
    if a.base == "zel_finding_function":
        return f"zel_finding_function {name}"
    if a.base == "void" or a.stars == 1 and a.base in interface.opaque:
        return f"IntPtr {name}"
    if a.base == "char" and a.stars == 2:
        return f"IntPtr[] {name}"
    if a.base == "char" and a.is_const:
        return f"[MarshalAs(UnmanagedType.LPUTF8Str)] string {name}"
    if function.name.startswith("zel_columns_add") and a.name in ("words", "values", "texts"):
        return f"IntPtr {name}"
    if a.base == "char":
        return f"byte[] {name}"
    if a.stars == 2:
        return f"ref IntPtr {name}"
    if a.base in interface.structs:
        return f"[In, Out] {a.base} {name}"
    number = SHARP_NUMBERS[a.base]
    return f"{number} {name}" if a.stars == 0 else f"{number}[] {name}" if a.is_array else f"out {number} {name}"


def sharp(interface):
    out = ["using System;", "using System.Runtime.InteropServices;", ""]
    for name, members in interface.structs.items():
        out += ["[StructLayout(LayoutKind.Sequential)]", f"public class {name} {{"]
        for kind, member, count in members:
            if count:
                out.append(f"    [MarshalAs(UnmanagedType.ByValArray, SizeConst = {count})]")
            found = "IntPtr" if "*" in kind else SHARP_NUMBERS[kind]
            out.append(f"    public {found}{'[]' if count else ''} {member};")
        out.append("}")
    out += ["[UnmanagedFunctionPointer(CallingConvention.Cdecl)]",
            "public delegate int zel_finding_function(IntPtr finding, IntPtr user);", "",
            "public static class Zel {"]
    out += constants(interface, "    public const int {name} = {value};")
    for function in interface.functions:
        typed = ", ".join(sharp_argument(interface, function, a) for a in function.arguments)
        out += ['    [DllImport("ZelC", CallingConvention = CallingConvention.Cdecl)]',
                f"    public static extern int {function.name}({typed});"]
    return out + ["}"]


# --- the page ------------------------------------------------------------------------------------

def page(interface):
    out = ["# The functions of the C interface", "",
           "All functions of [`zelaccess/zel.h`](c-interface.md), and their declarations for Julia and C#. This",
           "page is made from the headers, which describe arguments and statuses, by",
           "`scripts/make_c_declarations.py`.", "", "| Function | What it does |", "|---|---|"]
    group = ""
    for function in interface.functions:
        if function.group != group:
            group = function.group
            out.append(f"| **{group}** | |")
        out.append(f"| `{function.name}` | {function.summary} |")
    out += ["", "Every function returns a status:", "", "| Status | Number |", "|---|---|"]
    out += [f"| `{key}` | {value} |" for key, value in interface.enums["zel_statuses"]]
    out += ["", "## Julia", "", "Handles are `Ref{Ptr{Cvoid}}(C_NULL)` where they are made and `handle[]` where they are used. Arrays that",
            "`zel_columns_add_...` was given must be kept with `GC.@preserve` until the columns are closed. These",
            "declarations are made from the headers; no test runs them.", "", "```julia", *julia(interface), "```"]
    out += ["", "## C#", "", "Texts are in UTF-8. Members of structures and elements of arrays that are texts are made with",
            "`Marshal.StringToCoTaskMemUTF8`; `size` is `(nuint)Marshal.SizeOf<zel_open_options>()`. Arrays that",
            "`zel_columns_add_...` was given must be pinned until the columns are closed. These declarations are made",
            "from the headers; no test runs them.", "", "```csharp", *sharp(interface), "```"]
    return "\n".join(out) + "\n"


def main():
    interface = Interface()
    stale = False
    for path, text in ((FORTRAN, fortran(interface)), (PAGE, page(interface))):
        if sys.argv[1:] == ["--check"]:
            if path.read_text() != text:
                stale = True
                print(f"{path.relative_to(ROOT)} is not what scripts/make_c_declarations.py writes")
        else:
            path.write_text(text)
    return 1 if stale else 0


if __name__ == "__main__":
    sys.exit(main())
