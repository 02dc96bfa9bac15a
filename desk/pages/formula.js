// Formulas of the equations as they are printed: "C2 T^(i-1)" with indices and exponents.
"use strict";
const Formula = (() => {
  const kWords = { tau: "τ", sum: "Σ", sqrt: "√", pi: "π" };

  function escaped(text) {
    return String(text).replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/>/g, "&gt;")
      .replace(/"/g, "&quot;");
  }

  // The end of what follows at `from`: an expression in parentheses, or a number or a name.
  function endOfPower(text, from) {
    if (text[from] !== "(") {
      const match = /^-?[A-Za-z0-9.]+/.exec(text.slice(from));
      return from + (match ? match[0].length : 1);
    }
    let depth = 0;
    for (let i = from; i < text.length; ++i) {
      if (text[i] === "(") ++depth;
      if (text[i] === ")" && --depth === 0) return i + 1;
    }
    return text.length;
  }

  function word(text) {
    if (kWords[text]) return kWords[text];
    const coefficient = /^C([0-9]+|i|N|a|b)$/.exec(text);
    if (coefficient) return "<i>C</i><sub>" + coefficient[1] + "</sub>";
    const reduced = /^([TP])([rcb])$/.exec(text);
    if (reduced) return "<i>" + reduced[1] + "</i><sub>" + reduced[2] + "</sub>";
    return text.length === 1 ? "<i>" + text + "</i>" : escaped(text);
  }

  function toHtml(text) {
    let out = "";
    let i = 0;
    while (i < text.length) {
      const rest = text.slice(i);
      let match;
      if (rest[0] === "^") {
        const end = endOfPower(text, i + 1);
        const power = text.slice(i + 1, end);
        out += "<sup>" + toHtml(power[0] === "(" ? power.slice(1, -1) : power) + "</sup>";
        i = end;
      } else if ((match = /^, ([0-9]+)\.\.(N(?:-[0-9]+)?|[0-9]+)/.exec(rest))) {
        out += ", <i>i</i> = " + match[1] + " … " + escaped(match[2]).replace("N", "<i>N</i>").replace("-", "−");
        i += match[0].length;
      } else if ((match = /^C\((N-[0-9]+|k\+[0-9]+)\)/.exec(rest))) {
        out += "<i>C</i><sub>" + match[1].replace("-", "−") + "</sub>";
        i += match[0].length;
      } else if ((match = /^[A-Za-z][A-Za-z0-9]*/.exec(rest))) {
        out += word(match[0]);
        i += match[0].length;
      } else {
        out += rest[0] === "-" ? "−" : escaped(rest[0]);
        ++i;
      }
    }
    return out;
  }

  return { toHtml, escaped };
})();
