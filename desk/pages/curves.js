// Curves of correlations from the numbers that the library computed: pieces, each with values at
// Chebyshev points, between which a polynomial runs through all of them.
"use strict";
const Curves = (() => {
  let numbers = null;

  function load(text) {
    const bytes = Uint8Array.from(atob(text), (c) => c.charCodeAt(0));
    numbers = new Float32Array(bytes.buffer);
  }

  // The pieces of the curve that begins at this number.
  function piecesAt(offset) {
    const count = numbers[offset];
    const pieces = [];
    let low = numbers[offset + 1];
    let at = offset + 2;
    for (let i = 0; i < count; ++i) {
      const high = numbers[at];
      const code = numbers[at + 1];
      const points = code % 64;
      const kind = Math.floor(code / 64);
      pieces.push({
        low, high, isLog: (kind & 1) !== 0, isEnd: (kind & 2) !== 0,
        values: numbers.subarray(at + 2, at + 2 + points),
      });
      at += 2 + points;
      low = high;
    }
    return pieces;
  }

  // Barycentric interpolation through values at cos(j pi / (n - 1)), j from 0.
  function interpolate(values, x) {
    const n = values.length;
    if (n === 1) return values[0];
    let above = 0;
    let below = 0;
    for (let j = 0; j < n; ++j) {
      const distance = x - Math.cos((j * Math.PI) / (n - 1));
      if (distance === 0) return values[j];
      const weight = ((j % 2 ? -1 : 1) * (j === 0 || j === n - 1 ? 0.5 : 1)) / distance;
      above += weight * values[j];
      below += weight;
    }
    return above / below;
  }

  // The value at a temperature in K; null outside the curve and where it has none.
  function valueAt(pieces, kelvin) {
    for (const piece of pieces) {
      if (kelvin < piece.low || kelvin > piece.high) continue;
      if (piece.values.length === 0) return null;
      let x = (2 * (kelvin - piece.low)) / (piece.high - piece.low) - 1;
      // Towards its end this piece is stretched, by the eighth root.
      if (piece.isEnd) x = 1 - 2 * Math.pow((piece.high - kelvin) / (piece.high - piece.low), 1 / 8);
      const y = interpolate(piece.values, x);
      return piece.isLog ? Math.exp(y) : y;
    }
    return null;
  }

  return { load, piecesAt, valueAt };
})();
