#!/usr/bin/env python3
"""Writes a deterministic, realistic mSL script of a given size.

The mix: single- and multi-line aliases, events of many families, nested
if/while blocks, identifiers with arguments and properties, variables,
script groups, comments with developer notes, dialog tables, and a share of
faulty lines (about one report per ten lines).

    gen_corpus.py LINES [SEED] > script.mrc
"""
import random
import sys

EVENTS = [
    ("text", "*hello*:#"), ("action", "*:?"), ("notice", "*:*"),
    ("join", "#"), ("part", None), ("kick", "#mychan"), ("op", "#"),
    ("connect", None), ("disconnect", None), ("input", "*"),
    ("sockread", "bot.*"), ("sockopen", "bot.*"), ("dialog", "setup:sclick:1-5"),
    ("keydown", "@win:65,66"), ("open", "?"), ("dccserver", "chat"),
    ("filercvd", "*.txt"), ("logon", "*"), ("signal", "reload"),
]
COMMANDS = ["echo -a", "msg $chan", "notice $nick", "set %tmp", "inc %count",
            "hadd -m cache", "write log.txt", "sockwrite -n bot", "timer 1 5",
            "var %x =", "describe $chan", "mode $chan +o", "halt", "return"]
IDENTS = ["$nick", "$chan", "$me", "$time", "$date",
          "$gettok(%line,1,32)", "$len(%text)", "$calc(%a + $len(%b) * 2)",
          "$iif((%a == 1), yes, no)", "$chan(#).topic", "$left(%s,3)",
          "$mid(%s,2,4)", "$replace(%s,a,b)", "$hget(cache,%k)", "$sock(bot).mark",
          "$file(%f).size", "$upper($nick)", "$numtok(%l,44)", "$rand(1,10)"]
FAULTS = ["echo -a $left(%s)", "echo -a $len(a,b)", "echo -a $chan(#).nosuch",
          "echo } stray", "echo -a $mid(x", "if %a != 1 { echo x }",
          "var -x %bad 1", "echo -a $a(b)x", "echo -a $abs(1).", "echo {"]
NOTES = ["; todo: tidy this up", "; fixme: breaks on empty input",
         "; hack: work around the server", "; xxx: remove before release",
         "; just a comment", "/* a block comment\n   spanning lines\n*/"]


class Writer:
    def __init__(self, limit, rng):
        self.lines = []
        self.limit = limit
        self.rng = rng

    def full(self):
        return len(self.lines) >= self.limit

    def add(self, line):
        self.lines.append(line)


def body_line(rng, depth):
    pad = "  " * depth
    roll = rng.random()
    if roll < 0.10:
        return pad + rng.choice(FAULTS)
    if roll < 0.18:
        return pad + "; " + rng.choice(["note", "todo: later", "see above"])
    cmd = rng.choice(COMMANDS)
    args = " ".join(rng.choice(IDENTS) for _ in range(rng.randint(1, 3)))
    if rng.random() < 0.2:
        args += " | inc %n"
    return pad + cmd + " " + args


def block(w, rng, depth):
    for _ in range(rng.randint(2, 8)):
        if w.full():
            return
        roll = rng.random()
        if roll < 0.15 and depth < 4:
            kw = rng.choice(["if", "while", "elseif"]) if depth else "if"
            cond = rng.choice(["(%a == 1)", "($nick isop $chan)", "(%i < 10)",
                               "((%x) && ($me != $nick))", "(!%flag)"])
            w.add("  " * depth + f"{kw} {cond} {{")
            block(w, rng, depth + 1)
            w.add("  " * depth + "}")
            if rng.random() < 0.3:
                w.add("  " * depth + "else {")
                block(w, rng, depth + 1)
                w.add("  " * depth + "}")
        else:
            w.add(body_line(rng, depth))


def alias(w, rng, n):
    local = "-l " if rng.random() < 0.3 else ""
    if rng.random() < 0.3:
        w.add(f"alias {local}short{n} return {rng.choice(IDENTS)}")
        return
    w.add(f"alias {local}proc{n} {{")
    block(w, rng, 1)
    w.add("}")


def event(w, rng, n):
    name, params = rng.choice(EVENTS)
    head = f"on *:{name}:" + (params + ":" if params else "")
    w.add(head + " {")
    block(w, rng, 1)
    w.add("}")


def dialog(w, rng, n):
    w.add(f"dialog setup{n} {{")
    w.add('  title "Setup"')
    w.add("  size -1 -1 200 120")
    w.add("  option dbu")
    w.add('  text "Name:", 1, 5 5 40 10')
    w.add('  edit "", 2, 50 5 100 10, autohs')
    w.add('  button "OK", 3, 50 100 40 12, ok')
    w.add('  check "Remember", 4, 5 20 60 10, left')
    if rng.random() < 0.3:
        w.add("  list 5, 5 35 100 50, sort nonsense")
    w.add("}")


def main():
    lines = int(sys.argv[1]) if len(sys.argv) > 1 else 20000
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else 1
    rng = random.Random(seed)
    w = Writer(lines, rng)
    n = 0
    in_group = False
    while not w.full():
        n += 1
        roll = rng.random()
        if roll < 0.05:
            if in_group:
                w.add("#grp end")
            else:
                w.add(f"#grp{n} on")
            in_group = not in_group
        elif roll < 0.12:
            for line in rng.choice(NOTES).split("\n"):
                w.add(line)
        elif roll < 0.55:
            alias(w, rng, n)
        elif roll < 0.90:
            event(w, rng, n)
        else:
            dialog(w, rng, n)
        if rng.random() < 0.3:
            w.add("")
    sys.stdout.write("\n".join(w.lines[:lines]) + "\n")


if __name__ == "__main__":
    main()
