// A chart of curves of one correlation over the temperature, with the values at the cursor.
"use strict";
const Charts = (() => {
  // The colors are those of desk/pictures/line_style.cpp. There are no markers here, so that there
  // are more dashes: the first eight lines differ without color too.
  const kColors = ["#0072b2", "#d55e00", "#009e73", "#cc79a7", "#b07d00", "#56b4e9", "#000000"];
  const kDashes = [[], [12, 4], [4, 4], [12, 3, 3, 3], [2, 2], [18, 6], [12, 3, 3, 3, 3, 3], [7, 2]];
  const kPoints = 600;
  const kPrintWidth = 640;
  let shown = [];
  let temperature = ["K", 1, 0];  // unit, factor and summand of a temperature in K

  function use(all) { temperature = all.temperature; }

  function digits(value, count) {
    if (value === null || value === undefined) return "–";
    const text = value.toPrecision(count || 6);
    return text.includes("e") ? text : String(Number(text));
  }

  // "10⁻⁶", but "0.01" to "1000" as they are.
  function powerOfTen(value) {
    const power = Math.round(Math.log10(value));
    if (power >= -2 && power <= 3) return String(Number(value.toPrecision(1)));
    return "10" + String(power).replace("-", "⁻").replace(/[0-9]/g, (d) => "⁰¹²³⁴⁵⁶⁷⁸⁹"[d]);
  }
  // Only powers of ten, every second of them where there are many.
  function powersOnly(u, ticks) {
    const powers = ticks.map((v) => Math.log10(v));
    const step = Math.max(1, Math.ceil((Math.max(...powers) - Math.min(...powers)) / 7));
    return ticks.map((v, i) => {
      const power = Math.round(powers[i]);
      return Math.abs(powers[i] - power) < 1e-9 && power % step === 0 ? v : null;
    });
  }

  function clear() {
    for (const one of shown) one.plot.destroy();
    shown = [];
  }

  function temperatures(curves) {
    let low = Infinity;
    let high = -Infinity;
    const all = [];
    for (const curve of curves) {
      for (const piece of curve.pieces) {
        low = Math.min(low, piece.low);
        high = Math.max(high, piece.high);
      }
      all.push(curve.pieces[0].low, curve.pieces[curve.pieces.length - 1].high);
    }
    for (let i = 0; i <= kPoints; ++i) all.push(low + ((high - low) * i) / kPoints);
    return [...new Set(all)].filter((t) => t >= low && t <= high).sort((a, b) => a - b);
  }

  function isSteep(columns) {
    let low = Infinity;
    let high = -Infinity;
    for (const column of columns) {
      for (const value of column) {
        if (value === null) continue;
        low = Math.min(low, value);
        high = Math.max(high, value);
      }
    }
    return low > 0 && high / low > 300;
  }

  function widthFor(box) {
    return Math.max(260, Math.min(900, box.clientWidth));
  }

  // Puts a piece of the line before each name in the legend.
  function showSamples(box) {
    box.querySelectorAll(".u-series .u-marker").forEach((marker, i) => {
      if (i === 0) return marker.remove();
      const dash = kDashes[(i - 1) % kDashes.length].join(" ");
      marker.outerHTML = '<svg class="sample" width="36" height="8" aria-hidden="true"><path d="M0 4H36" fill="none" ' +
        'stroke-width="2" stroke="' + kColors[(i - 1) % kColors.length] + '" stroke-dasharray="' + dash + '"/></svg>';
    });
  }

  // `curves` are {label, pieces}. Left and right move the cursor; the values are read out.
  function draw(box, title, valueName, unit, curves) {
    const kelvin = temperatures(curves);
    const columns = curves.map((curve) => kelvin.map((t) => Curves.valueAt(curve.pieces, t)));
    const x = kelvin.map((t) => t * temperature[1] + temperature[2]);
    const label = "T [" + temperature[0] + "]";
    const isLog = isSteep(columns);
    const series = [{ label, value: (u, v) => digits(v) }];
    curves.forEach((curve, i) => series.push({
      label: curve.label, stroke: kColors[i % kColors.length], dash: kDashes[i % kDashes.length],
      width: 2, points: { show: false }, value: (u, v) => digits(v),
    }));
    const plot = new uPlot({
      width: widthFor(box), height: 320, series,
      cursor: { drag: { x: false, y: false } },
      scales: { x: { time: false }, y: isLog ? { distr: 3 } : {} },
      axes: [
        { label, values: (u, ticks) => ticks.map((v) => digits(v)) },
        { label: valueName + (unit ? " [" + unit + "]" : ""), size: 74,
          ...(isLog ? { filter: powersOnly, grid: { filter: powersOnly }, ticks: { filter: powersOnly } } : {}),
          values: (u, ticks) => ticks.map((v) => (v === null ? "" : isLog ? powerOfTen(v) : digits(v, 6))) },
      ],
    }, [x, ...columns], box);
    showSamples(box);
    box.tabIndex = 0;
    box.setAttribute("role", "img");
    box.setAttribute("aria-label", title + ": " + curves.map((c) => c.label).join(", ") +
      ". Left and right arrow keys move the cursor.");
    box.addEventListener("keydown", (event) => move(event, plot, x));
    shown.push({ plot, box });
  }

  function move(event, plot, x) {
    const kSteps = { ArrowLeft: -1, ArrowRight: 1, PageDown: -20, PageUp: 20 };
    let index;
    if (event.key === "Home") index = 0;
    else if (event.key === "End") index = x.length - 1;
    else if (kSteps[event.key]) {
      const now = plot.cursor.idx === null || plot.cursor.idx === undefined ? 0 : plot.cursor.idx;
      index = Math.min(x.length - 1, Math.max(0, now + kSteps[event.key]));
    } else return;
    event.preventDefault();
    plot.setCursor({ left: plot.valToPos(x[index], "x"), top: plot.over.clientHeight / 2 });
  }

  function resize(width) {
    for (const one of shown) one.plot.setSize({ width: width || widthFor(one.box), height: 320 });
  }
  window.addEventListener("resize", () => resize(0));
  window.addEventListener("beforeprint", () => resize(kPrintWidth));
  window.addEventListener("afterprint", () => resize(0));

  return { use, draw, clear, digits };
})();
