'use strict';

const data = JSON.parse(document.getElementById('data').textContent);
const element = id => document.getElementById(id);
const jointCount = data.joints.length;
const lastIndex = data.frames.length - 1;

// ---- The positions of the joints: x, y and z of each joint, frame by frame ----

function floats(base64) {
  const bytes = Uint8Array.from(atob(base64), character => character.charCodeAt(0));
  const view = new DataView(bytes.buffer);
  return Float32Array.from({length: bytes.length / 4}, (_, i) => view.getFloat32(4 * i, true));
}

const wentIn = floats(data.wentIn);
const cameBack = floats(data.cameBack);
const middles = floats(data.middles);
// Only frames in which something moved have positions of their own that came back.
const cameBackAt = new Map(data.cameBackFrames.map((index, i) => [index, i]));
const differingAt = new Map(data.differing.map(([index, ...ranges]) => [index, jointsOf(ranges)]));

function jointsOf(ranges) {
  const joints = new Set();
  for (let i = 0; i < ranges.length; i += 2)
    for (let joint = ranges[i]; joint <= ranges[i + 1]; ++joint) joints.add(joint);
  return joints;
}

function framePositions(all, frame) {
  return all.subarray(3 * jointCount * frame, 3 * jointCount * (frame + 1));
}

function positionsThatWentIn(index) {
  return framePositions(wentIn, index);
}

function positionsThatCameBack(index) {
  const place = cameBackAt.get(index);
  return place === undefined ? positionsThatWentIn(index) : framePositions(cameBack, place);
}

// ---- What is shown ----

const state = {
  index: 0,
  playing: false,
  speed: 1,
  // The evaluation that playing has reached; between two whole ones most of the time.
  time: 0,
  yaw: 0.6,
  pitch: 0.2,
  zoom: 1,
  selected: null,
  hovered: null,
  drawn: false,
};

function goTo(index, keepsPlaying = false) {
  state.index = Math.min(Math.max(index, 0), lastIndex);
  if (!keepsPlaying) {
    state.time = data.evaluations[state.index];
    setPlaying(false);
  }
  showFrame();
}

function showFrame() {
  const frame = data.frames[state.index];
  const seconds = (frame / data.framesPerSecond).toFixed(2);
  element('frame').textContent = `Frame ${frame}`;
  element('seconds').textContent = `of ${data.frames[0]}–${data.frames[lastIndex]} · ${seconds} s`;
  element('slider').value = state.index;
  element('slider').setAttribute('aria-valuetext', `frame ${frame}, ${seconds} seconds`);
  const differing = differingAt.get(state.index);
  canvas.setAttribute('aria-label', `The skeleton in frame ${frame}: ` +
    (differing ? `${differing.size} joints differ` : 'no joint differs'));
  for (const button of document.querySelectorAll('.rows button'))
    button.setAttribute('aria-current', frame >= button.dataset.first && frame <= button.dataset.last);
  redraw();
}

function setPlaying(playing) {
  state.playing = playing && lastIndex > 0;
  element('play').classList.toggle('playing', state.playing);
  element('play').setAttribute('aria-label', state.playing ? 'Pause' : 'Play');
  if (state.playing) {
    if (state.index === lastIndex) state.time = data.evaluations[0];
    lastTick = performance.now();
    requestAnimationFrame(tick);
  }
}

let lastTick = 0;

function tick(now) {
  if (!state.playing) return;
  const first = data.evaluations[0];
  const length = data.evaluations[lastIndex] + 1 - first;
  state.time += Math.max(now - lastTick, 0) / 1000 * data.framesPerSecond * state.speed;
  state.time = first + (state.time - first) % length;
  lastTick = now;
  goTo(indexAt(state.time), true);
  requestAnimationFrame(tick);
}

// The last kept evaluation that is not after this one.
function indexAt(evaluation) {
  let low = 0, high = lastIndex;
  while (low < high) {
    const middle = Math.ceil((low + high) / 2);
    if (data.evaluations[middle] <= evaluation) low = middle;
    else high = middle - 1;
  }
  return low;
}

// The kept frame that is nearest to a frame of the rig; of those in which something differs, if any
// is within the row of frames that begins there.
function indexOfFrame(first, last = first) {
  const inRow = data.frames.findIndex((frame, i) => frame >= first && frame <= last && differingAt.has(i));
  if (inRow >= 0) return inRow;
  let best = 0;
  data.frames.forEach((frame, i) => {
    if (Math.abs(frame - first) < Math.abs(data.frames[best] - first)) best = i;
  });
  return best;
}

// ---- Seeing in space ----

const dot = (a, b) => a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
const cross = (a, b) => [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]];
const sum = (a, x, b, y) => a.map((_, i) => a[i] * x + b[i] * y);
const ahead = cross(data.left, data.up);

// Gives a function from points to the canvas: [x, y, pixels per unit there], or null behind the eye.
function camera(width, height) {
  const {yaw, pitch} = state;
  const level = sum(ahead, Math.cos(yaw), data.left, Math.sin(yaw));
  const right = sum(data.left, Math.cos(yaw), ahead, -Math.sin(yaw));
  const up = sum(data.up, Math.cos(pitch), level, -Math.sin(pitch));
  const towardsEye = sum(level, Math.cos(pitch), data.up, Math.sin(pitch));
  const middle = middles.subarray(3 * state.index, 3 * state.index + 3);
  const distance = 5 * data.size;
  const scale = state.zoom * Math.min(0.55 * width, 0.45 * height) / data.size;
  return (x, y, z) => {
    const point = [x - middle[0], y - middle[1], z - middle[2]];
    const depth = distance - dot(point, towardsEye);
    if (!(depth > 0.02 * distance)) return null;
    const perspective = scale * distance / depth;
    return [width / 2 + perspective * dot(point, right), height / 2 - perspective * dot(point, up), perspective];
  };
}

// ---- Drawing ----

const canvas = element('canvas');
const context = canvas.getContext('2d');
let colours = {};
// Where each joint was drawn last, for the pointer to find it.
let drawnJoints = [];

function readColours() {
  const style = getComputedStyle(document.documentElement);
  for (const name of ['ground', 'went-in', 'left', 'middle', 'right', 'differs', 'ink', 'sky'])
    colours[name] = style.getPropertyValue('--' + name).trim();
}

function redraw() {
  if (state.drawn) requestAnimationFrame(draw);
  state.drawn = false;
}

function draw() {
  if (state.drawn) return;
  state.drawn = true;
  const ratio = window.devicePixelRatio || 1;
  const width = canvas.clientWidth, height = canvas.clientHeight;
  if (canvas.width !== Math.round(width * ratio) || canvas.height !== Math.round(height * ratio)) {
    canvas.width = Math.round(width * ratio);
    canvas.height = Math.round(height * ratio);
  }
  context.setTransform(ratio, 0, 0, ratio, 0, 0);
  context.clearRect(0, 0, width, height);
  context.lineCap = context.lineJoin = 'round';
  const project = camera(width, height);
  drawGround(project);
  const before = projectAll(positionsThatWentIn(state.index), project);
  drawBones(before, () => true, colours['went-in'], 10);
  drawDots(before, () => true, colours['went-in'], 6);
  if (data.hasCameBack) drawCameBack(projectAll(positionsThatCameBack(state.index), project));
  else drawnJoints = before;
  drawSelected();
}

function drawCameBack(points) {
  drawnJoints = points;
  for (const side of ['left', 'middle', 'right']) {
    const isOfSide = joint => data.sides[joint] === side[0];
    drawBones(points, isOfSide, colours[side], 2.5);
    drawDots(points, isOfSide, colours[side], jointCount > 300 ? 1.5 : 3);
  }
  const differing = differingAt.get(state.index);
  if (!differing) return;
  const differs = joint => differing.has(joint);
  drawBones(points, differs, colours.differs, 4);
  drawDots(points, differs, colours.sky, 7.5);
  drawDots(points, differs, colours.differs, 6);
}

function projectAll(positions, project) {
  return data.joints.map((_, i) => project(positions[3 * i], positions[3 * i + 1], positions[3 * i + 2]));
}

function drawBones(points, includes, colour, thickness) {
  context.beginPath();
  points.forEach((point, joint) => {
    const parent = points[data.parents[joint]];
    if (!point || !parent || !includes(joint)) return;
    context.moveTo(parent[0], parent[1]);
    context.lineTo(point[0], point[1]);
  });
  context.strokeStyle = colour;
  context.lineWidth = thickness;
  context.stroke();
}

function drawDots(points, includes, colour, radius) {
  context.beginPath();
  points.forEach((point, joint) => {
    if (!point || !includes(joint)) return;
    context.moveTo(point[0] + radius, point[1]);
    context.arc(point[0], point[1], radius, 0, 2 * Math.PI);
  });
  context.fillStyle = colour;
  context.fill();
}

// A grid that stays where it is while the figure moves over it.
function drawGround(project) {
  const middle = middles.subarray(3 * state.index, 3 * state.index + 3);
  const [u, v] = [data.left, ahead];
  const from = axis => Math.round(dot(middle, axis) / data.grid) - 6;
  const corner = (i, j) => {
    const point = sum(sum(u, i * data.grid, v, j * data.grid), 1, data.up, data.ground);
    return project(...point);
  };
  context.beginPath();
  const [firstU, firstV] = [from(u), from(v)];
  for (let i = 0; i <= 12; ++i)
    for (const [a, b] of [[corner(firstU + i, firstV), corner(firstU + i, firstV + 12)],
                          [corner(firstU, firstV + i), corner(firstU + 12, firstV + i)]]) {
      if (!a || !b) continue;
      context.moveTo(a[0], a[1]);
      context.lineTo(b[0], b[1]);
    }
  context.strokeStyle = colours.ground;
  context.lineWidth = 1;
  context.stroke();
}

function drawSelected() {
  const point = drawnJoints[state.selected];
  if (!point) return;
  context.beginPath();
  context.arc(point[0], point[1], 12, 0, 2 * Math.PI);
  context.strokeStyle = colours.ink;
  context.lineWidth = 2;
  context.stroke();
  context.fillStyle = colours.ink;
  context.font = '600 14px system-ui, sans-serif';
  context.direction = 'ltr';
  context.fillText(data.joints[state.selected], point[0] + 18, point[1] + 5);
}

// Where on the timeline something differs.
function drawMarks() {
  const marks = element('marks'), ratio = window.devicePixelRatio || 1;
  marks.width = Math.max(1, Math.round(marks.clientWidth * ratio));
  marks.height = Math.round(7 * ratio);
  const pen = marks.getContext('2d');
  pen.fillStyle = colours.differs;
  const width = Math.max(marks.width / (lastIndex + 1), 2 * ratio);
  for (const index of differingAt.keys()) {
    const x = index / (lastIndex + 1) * marks.width;
    pen.fillRect(Math.floor(x), 0, Math.ceil(width), marks.height);
  }
}

// ---- Pointer, buttons and keys ----

const pointers = new Map();

canvas.addEventListener('pointerdown', event => {
  canvas.setPointerCapture(event.pointerId);
  pointers.set(event.pointerId, event);
});
for (const name of ['pointerup', 'pointercancel'])
  canvas.addEventListener(name, event => pointers.delete(event.pointerId));
canvas.addEventListener('pointermove', event => {
  const before = pointers.get(event.pointerId);
  if (!before) return hover(event);
  if (pointers.size === 1) {
    state.yaw -= 0.008 * (event.clientX - before.clientX);
    turnUp(0.008 * (event.clientY - before.clientY));
  } else {
    const other = [...pointers.values()].find(pointer => pointer.pointerId !== event.pointerId);
    const apart = pointer => Math.hypot(pointer.clientX - other.clientX, pointer.clientY - other.clientY);
    zoomBy(apart(event) / Math.max(apart(before), 1));
  }
  pointers.set(event.pointerId, event);
  redraw();
});
canvas.addEventListener('pointerleave', () => showName(null));
canvas.addEventListener('wheel', event => {
  event.preventDefault();
  zoomBy(Math.exp(-0.0015 * event.deltaY));
}, {passive: false});

function turnUp(angle) {
  state.pitch = Math.min(Math.max(state.pitch + angle, -1.55), 1.57);
}

function zoomBy(factor) {
  state.zoom = Math.min(Math.max(state.zoom * factor, 0.05), 50);
  redraw();
}

function hover(event) {
  let nearest = null, least = 14;
  drawnJoints.forEach((point, joint) => {
    const distance = point ? Math.hypot(point[0] - event.offsetX, point[1] - event.offsetY) : Infinity;
    if (distance < least) [nearest, least] = [joint, distance];
  });
  showName(nearest);
}

function showName(joint) {
  const label = element('hover');
  label.hidden = joint === null;
  if (joint === null) return;
  label.firstChild.textContent = data.joints[joint];
  const [x, y] = drawnJoints[joint];
  label.style.transform = `translate(${Math.min(x + 14, 0.6 * canvas.clientWidth)}px, ${y - 12}px)`;
}

const views = {front: [0, 0], side: [-Math.PI / 2, 0], above: [0, 1.57]};

document.addEventListener('click', event => {
  const button = event.target.closest('button');
  if (!button) return;
  if (button.dataset.view) [state.yaw, state.pitch] = views[button.dataset.view];
  if (button.dataset.zoom) zoomBy(Number(button.dataset.zoom));
  if (button.dataset.speed) setSpeed(Number(button.dataset.speed));
  redraw();
});

function setSpeed(speed) {
  state.speed = speed;
  for (const button of document.querySelectorAll('[data-speed]'))
    button.setAttribute('aria-pressed', Number(button.dataset.speed) === speed);
}

element('play').addEventListener('click', () => setPlaying(!state.playing));
element('back').addEventListener('click', () => goTo(state.index - 1));
element('forward').addEventListener('click', () => goTo(state.index + 1));
element('slider').addEventListener('input', event => goTo(Number(event.target.value)));

const keys = {
  ' ': () => setPlaying(!state.playing),
  ArrowLeft: () => goTo(state.index - 1),
  ArrowRight: () => goTo(state.index + 1),
  Home: () => goTo(0),
  End: () => goTo(lastIndex),
};

document.addEventListener('keydown', event => {
  if (event.ctrlKey || event.altKey || event.metaKey || !keys[event.key]) return;
  // A button takes the space bar itself, and what scrolls its keys.
  if (event.key === ' ' && event.target.closest('button')) return;
  if (event.target.closest('.scrolls')) return;
  event.preventDefault();
  keys[event.key]();
});

// ---- What is said ----

function add(parent, tag, text, className) {
  const child = document.createElement(tag);
  if (text !== undefined) child.textContent = text;
  if (className) child.className = className;
  parent.append(child);
  return child;
}

const grouped = number => number.toLocaleString('en-US');
const counted = (count, one, many) => `${grouped(count)} ${count === 1 ? one : many}`;

function showHead() {
  element('file').textContent = data.file;
  if (data.animation) {
    add(element('about'), 'bdi', data.animation);
    element('about').append(' · ');
  }
  element('about').append([counted(data.joints.length, 'joint', 'joints'), counted(data.frameCount, 'frame', 'frames') +
    ` at ${data.framesPerSecond} per second`].join(' · '));
  const verdict = element('verdict');
  verdict.classList.toggle('good', data.ok);
  verdict.textContent = data.verdict;
  element('library').append('By the library “');
  add(element('library'), 'bdi', data.library);
  element('library').append('”. Times are processor time: the median of all evaluations.');
}

function showLegend() {
  const line = (colour, text, kind) => {
    const item = add(element('legend'), 'li');
    add(item, 'i', '', kind).style.setProperty('--swatch', `var(--${colour})`);
    item.append(text);
  };
  line('went-in', 'went in', 'wide');
  if (data.hasCameBack)
    for (const side of ['left', 'middle', 'right'])
      if (data.sides.includes(side[0]))
        line(side, 'came back' + (/[lr]/.test(data.sides) ? ', ' + side : ''));
  if (differingAt.size > 0) line('differs', 'differs', 'dot');
  if (data.gridLabel) line('ground', `grid of ${data.gridLabel}`);
}

function showThinned() {
  if (data.step === 1 && data.frames.length === data.evaluated) return;
  element('thinned').hidden = false;
  element('thinned').textContent = `Shown are ${grouped(data.frames.length)} of ${grouped(data.evaluated)} frames` +
    (data.step > 1 ? `, one in ${grouped(data.step)}` : '') +
    (differingAt.size > 0 ? ', and further ones in which joints differ.' : '.');
}

function showDifferences() {
  if (data.differences.length === 0) return;
  element('differences').hidden = false;
  document.querySelector('main').classList.add('differs');
  for (const difference of data.differences) {
    const item = add(element('joints'), 'li');
    const select = (first, last) => {
      state.selected = difference.joint;
      for (const other of document.querySelectorAll('#joints .selected')) other.classList.remove('selected');
      name.classList.add('selected');
      goTo(indexOfFrame(first, last));
    };
    const {first, last} = difference.rows[0];
    const name = add(item, 'button', undefined, difference.joint === null ? 'joint none' : 'joint');
    name.type = 'button';
    name.addEventListener('click', () => select(first, last));
    add(name, 'bdi', difference.joint === null ? 'Of no single joint' : data.joints[difference.joint]);
    add(name, 'span', counted(difference.evaluations, 'frame', 'frames'), 'count');
    const rows = add(item, 'div', undefined, 'rows');
    for (const row of difference.rows) {
      const button = add(rows, 'button', row.first === row.last ? `${row.first}` : `${row.first}–${row.last}`);
      button.type = 'button';
      button.dataset.first = row.first;
      button.dataset.last = row.last;
      button.setAttribute('aria-label', `Frame ${button.textContent}`);
      button.addEventListener('click', () => select(row.first, row.last));
    }
    const shown = difference.rows.reduce((count, row) => count + row.last - row.first + 1, 0);
    if (shown < difference.evaluations) add(rows, 'span', `and ${grouped(difference.evaluations - shown)} more`, 'detail');
    showDetail(item, difference);
  }
  if (data.moreDiffering > 0) add(element('joints'), 'li', `… and ${counted(data.moreDiffering, 'joint', 'joints')} more`);
}

function showDetail(item, {place, what, expected, actual}) {
  const detail = add(item, 'p', undefined, 'detail');
  add(detail, 'code', place);
  detail.append(' ' + what);
  if (expected === '' && actual === '') return;
  detail.append(': ');
  add(detail, 'code', expected);
  detail.append(' went in, ');
  add(detail, 'code', actual);
  detail.append(' came back');
}

function showTypes() {
  const time = nanoseconds => nanoseconds < 999950 ? `${(nanoseconds / 1e3).toFixed(1)} µs` : `${(nanoseconds / 1e6).toFixed(1)} ms`;
  for (const type of data.types) {
    const row = add(element('types'), 'tr');
    add(row, 'th', type.name).scope = 'row';
    add(row, 'td', grouped(type.attributes));
    add(row, 'td', grouped(type.leaves));
    add(row, 'td', time(type.fromHost));
    add(row, 'td', time(type.toHost));
    add(row, 'td', grouped(type.mismatches), type.mismatches > 0 ? 'bad' : '');
  }
  for (const remark of data.remarks) add(element('remarks'), 'li', remark);
}

// ---- Begin ----

function begin() {
  element('slider').max = lastIndex;
  readColours();
  showHead();
  showLegend();
  showThinned();
  showDifferences();
  showTypes();
  setSpeed(1);
  drawMarks();
  state.drawn = true;
  showFrame();
  new ResizeObserver(() => { drawMarks(); redraw(); }).observe(canvas);
  matchMedia('(prefers-color-scheme: dark)').addEventListener('change', () => { readColours(); drawMarks(); redraw(); });
}

begin();
