// The works in JavaScript.
function timeWork(name, work) {
  const begin = process.hrtime.bigint();
  const check = work();
  console.log(`${name} ${(Number(process.hrtime.bigint() - begin) / 1e9).toFixed(6)} ${check}`);
}

function fibonacci(n) { return n < 2 ? n : fibonacci(n - 1) + fibonacci(n - 2); }

timeWork('integer_loop', () => {
  const n = 100000000;
  let s = 0, i = 0;
  while (i < n) { s = s + i; i = i + 1; }
  return s;
});
timeWork('mandelbrot', () => {
  const size = 400, limit = 100;
  let count = 0, y = 0;
  while (y < size) {
    let x = 0;
    while (x < size) {
      const cr = 3.0 * x / size - 2.0, ci = 2.0 * y / size - 1.0;
      let zr = 0, zi = 0, n = 0;
      while (n < limit && zr * zr + zi * zi <= 4.0) {
        const t = zr * zr - zi * zi + cr;
        zi = 2.0 * zr * zi + ci;
        zr = t;
        n = n + 1;
      }
      count = count + n;
      x = x + 1;
    }
    y = y + 1;
  }
  return count;
});
timeWork('fibonacci', () => fibonacci(32));
timeWork('sieve', () => {
  const n = 2000000, flags = [];
  for (let i = 0; i <= n; i++) flags.push(true);
  let count = 0, i = 2;
  while (i <= n) {
    if (flags[i]) {
      count = count + 1;
      let j = i * i;
      while (j <= n) { flags[j] = false; j = j + i; }
    }
    i = i + 1;
  }
  return count;
});
timeWork('concatenation', () => {
  let s = '', i = 0;
  while (i < 20000) { s = s + 'x'; i = i + 1; }
  return s.length;
});
const word = 'international';
function shortStrings(call) {
  let total = 0, i = 0;
  while (i < 1000000) { total = total + call(i); i = i + 1; }
  return total;
}
timeWork('left', () => shortStrings((i) => word.substring(0, i % 8).length));
timeWork('mid', () => shortStrings((i) => word.substring(i % 8, i % 8 + 5).length));
timeWork('instr', () => shortStrings((i) => word.indexOf('nal', i % 8)));

const parts = [];
for (let length = 0, i = 0; length < 10000000; i++) {
  parts.push(`The quick brown Fox ${i} jumps over the lazy dog, `);
  length += parts[parts.length - 1].length;
}
const text = parts.join('');
function countOf(hay, find) {
  let count = 0;
  for (let at = hay.indexOf(find); at >= 0; at = hay.indexOf(find, at + 1)) count++;
  return count;
}
timeWork('count', () => countOf(text, 'lazy'));
timeWork('count_ignoring_case', () => countOf(text.toLowerCase(), 'fox'));
timeWork('replace', () => text.replaceAll('lazy', 'eager').length);
timeWork('replace_ignoring_case', () => text.replace(/fOX/gi, 'wolf').length);
timeWork('search_missing', () => text.indexOf('lazy cat'));
const half = text.substring(0, 5000000);
let pieces = [];
timeWork('split', () => { pieces = half.split(' '); return pieces.length; });
timeWork('word_count', () => {
  const counts = new Map();
  let most = 0;
  for (let i = 0; i < pieces.length; i++) {
    const word = pieces[i];
    let count = counts.get(word);
    if (count === undefined) count = 0;
    count = count + 1;
    counts.set(word, count);
    if (count > most) most = count;
  }
  return most + counts.size;
});
timeWork('join', () => pieces.join(' ').length);
