'use strict';
// One editor session against the real quorls, driven by vscode-jsonrpc over
// the server's standard input and output: the library and the transport that
// VS Code's language client uses. The server is started from the same
// executable description as the VS Code extension builds from its
// "quor.server.path" setting.
//
// Environment: QUORLS is the path of the built server.
const test = require('node:test');
const assert = require('node:assert/strict');
const path = require('node:path');
const { spawn } = require('node:child_process');
const rpc = require('vscode-jsonrpc/node');
const { serverExecutable } = require(path.join(__dirname, '..', '..', 'editors', 'vscode', 'server.js'));

const QUORLS = process.env.QUORLS;
const TIMEOUT = { timeout: 15000 };

const LEXICAL_URI = 'file:///work/session/lexical.quor';
const SYNTAX_URI = 'file:///work/session/syntax.quor';
const SEMANTIC_URI = 'file:///work/session/semantic.quor';
const FEATURES_URI = 'file:///work/session/features.quor';
const FORMAT_URI = 'file:///work/session/format.quor';

const FEATURES = [
  '/// Adds two numbers.',          // 0
  'fn add(a: int, b: int): int {',  // 1
  '    return a + b;',              // 2
  '}',                              // 3
  '',                               // 4
  'class Counter {',                // 5
  '    fn bump(): int { return 1; }', // 6
  '}',                              // 7
  '',                               // 8
  'fn main(): int {',               // 9
  '    let total = add(1, 2);',     // 10
  '    return total;',              // 11
  '}',                              // 12
  '',
].join('\n');

let server;
let connection;
let exitPromise;
const publications = [];
const publicationWaiters = [];

function range(line, start, end) {
  return { start: { line, character: start }, end: { line, character: end } };
}

// Resolves with the next publishDiagnostics for `uri`; registered before the
// notification that causes it is sent.
function nextDiagnostics(uri) {
  return new Promise((resolve) => publicationWaiters.push({ uri, resolve }));
}

function errorAt(line, character, code, message) {
  return { range: range(line, character, character + 1), severity: 1, code, source: 'quorls', message };
}

async function open(uri, text) {
  const published = nextDiagnostics(uri);
  await connection.sendNotification('textDocument/didOpen', {
    textDocument: { uri, languageId: 'quor', version: 1, text },
  });
  return published;
}

async function change(uri, version, text) {
  const published = nextDiagnostics(uri);
  await connection.sendNotification('textDocument/didChange', {
    textDocument: { uri, version },
    contentChanges: [{ text }],
  });
  return published;
}

function at(uri, line, character) {
  return { textDocument: { uri }, position: { line, character } };
}

test.before(() => {
  assert.ok(QUORLS, 'QUORLS must name the quorls executable');
  const executable = serverExecutable(QUORLS);
  server = spawn(executable.command, executable.args, { stdio: ['pipe', 'pipe', 'inherit'] });
  exitPromise = new Promise((resolve) => server.on('exit', (code, signal) => resolve({ code, signal })));
  connection = rpc.createMessageConnection(
    new rpc.StreamMessageReader(server.stdout),
    new rpc.StreamMessageWriter(server.stdin));
  connection.onNotification('textDocument/publishDiagnostics', (params) => {
    publications.push(params);
    const index = publicationWaiters.findIndex((waiter) => waiter.uri === params.uri);
    if (index >= 0) {
      publicationWaiters.splice(index, 1)[0].resolve(params);
    }
  });
  // The server leaves right after answering "shutdown", so the "exit" that a
  // client sends next may find the pipe closed; that is no failure here.
  connection.onError(() => {});
  connection.listen();
});

test.after(() => {
  if (server && server.exitCode === null) {
    server.kill();
  }
});

test('initialize announces full sync and the five request features', TIMEOUT, async () => {
  const result = await connection.sendRequest('initialize', {
    processId: process.pid,
    rootUri: 'file:///work/session',
    capabilities: {},
  });
  assert.deepEqual(result, {
    capabilities: {
      textDocumentSync: 1,
      completionProvider: { resolveProvider: false, triggerCharacters: ['.', ':', '>'] },
      hoverProvider: true,
      definitionProvider: true,
      documentFormattingProvider: true,
      renameProvider: true,
    },
    serverInfo: { name: 'quorls', version: '1.0.0' },
  });
  await connection.sendNotification('initialized', {});
});

test('a lexical error is published at its byte with the hint folded into the message', TIMEOUT, async () => {
  const published = await open(LEXICAL_URI, 'let x = 1 # 2;\n');
  assert.deepEqual(published, {
    uri: LEXICAL_URI,
    diagnostics: [errorAt(0, 10, 'E1000', "Unexpected character: '#' (Remove or replace the invalid character)")],
  });
});

test('a syntax error is published where the parser expected the missing token', TIMEOUT, async () => {
  const published = await open(SYNTAX_URI, 'fn f() {\n    let x = 1\n}\n');
  assert.deepEqual(published.diagnostics, [errorAt(2, 0, 'E1000', "Expected ';' after variable declaration")]);
});

test('a type error is published at the return statement', TIMEOUT, async () => {
  const published = await open(SEMANTIC_URI, 'fn f(): int { return "x"; }\n');
  assert.deepEqual(published.diagnostics, [
    errorAt(0, 14, 'E1005', "Return type mismatch: expected 'int', got 'string'"),
  ]);
});

test('fixing a document publishes an empty list, and an error coming back is published again', TIMEOUT, async () => {
  const fixed = await change(LEXICAL_URI, 2, 'let x = 1 + 2;\n');
  assert.deepEqual(fixed, { uri: LEXICAL_URI, diagnostics: [] });
  const broken = await change(LEXICAL_URI, 3, 'let x = 1;\nlet y = x @@ $;\n');
  assert.deepEqual(broken.diagnostics, [
    errorAt(1, 13, 'E1000', "Unexpected character: '$' (Remove or replace the invalid character)"),
  ]);
});

test('a document without errors publishes an empty list', TIMEOUT, async () => {
  const published = await open(FEATURES_URI, FEATURES);
  assert.deepEqual(published, { uri: FEATURES_URI, diagnostics: [] });
});

test('completion lists keywords, built-in types, then the document declarations with members', TIMEOUT, async () => {
  const items = await connection.sendRequest('textDocument/completion', at(FEATURES_URI, 10, 4));
  assert.equal(items.length, 36 + 11 + 4);
  assert.deepEqual(items[0], {
    label: 'fn',
    kind: 14,
    detail: 'Quor keyword',
    documentation: { kind: 'markdown', value: 'Declare a function: `fn name(params): returnType { ... }`' },
  });
  assert.deepEqual(items[35], {
    label: 'null',
    kind: 14,
    detail: 'Quor keyword',
    documentation: { kind: 'markdown', value: 'Null pointer or reference literal' },
  });
  assert.deepEqual(items[36], { label: 'int', kind: 25, detail: 'Built-in Quor type' });
  assert.deepEqual(items[46], { label: 'List', kind: 25, detail: 'Built-in Quor type' });
  assert.deepEqual(items.slice(47), [
    {
      label: 'add',
      kind: 3,
      detail: 'fn add(a: int, b: int): int',
      documentation: { kind: 'markdown', value: 'Adds two numbers.' },
    },
    { label: 'Counter', kind: 7, detail: 'class Counter' },
    { label: 'bump', kind: 2, detail: 'public fn bump(): int' },
    { label: 'main', kind: 3, detail: 'fn main(): int' },
  ]);
});

test('hover shows a function signature with its doc comment', TIMEOUT, async () => {
  const hover = await connection.sendRequest('textDocument/hover', at(FEATURES_URI, 10, 17));
  assert.deepEqual(hover, {
    contents: { kind: 'markdown', value: '```quor\nfn add(a: int, b: int): int\n```\n\nAdds two numbers.\n' },
  });
});

test('hover shows the description of a keyword', TIMEOUT, async () => {
  const hover = await connection.sendRequest('textDocument/hover', at(FEATURES_URI, 1, 0));
  assert.deepEqual(hover, {
    contents: { kind: 'markdown', value: '**Keyword** `fn`\n\nDeclare a function: `fn name(params): returnType { ... }`' },
  });
});

test('hover on a local variable is null', TIMEOUT, async () => {
  assert.equal(await connection.sendRequest('textDocument/hover', at(FEATURES_URI, 11, 12)), null);
});

test('definition of a called function is the start of its declaration line', TIMEOUT, async () => {
  const location = await connection.sendRequest('textDocument/definition', at(FEATURES_URI, 10, 17));
  assert.deepEqual(location, { uri: FEATURES_URI, range: range(1, 0, 3) });
});

test('definition of a method name is the line of the method', TIMEOUT, async () => {
  const location = await connection.sendRequest('textDocument/definition', at(FEATURES_URI, 6, 8));
  assert.deepEqual(location, { uri: FEATURES_URI, range: range(6, 0, 4) });
});

test('rename replaces every identifier of that name in the document', TIMEOUT, async () => {
  const edit = await connection.sendRequest('textDocument/rename', {
    ...at(FEATURES_URI, 11, 12),
    newName: 'sum',
  });
  assert.deepEqual(edit, {
    changes: {
      [FEATURES_URI]: [
        { range: range(10, 8, 13), newText: 'sum' },
        { range: range(11, 11, 16), newText: 'sum' },
      ],
    },
  });
});

test('formatting replaces the whole document with four-space indentation', TIMEOUT, async () => {
  const text = 'fn main(): int {\nlet x=1+2;\nreturn x;\n}';
  await open(FORMAT_URI, text);
  const edits = await connection.sendRequest('textDocument/formatting', {
    textDocument: { uri: FORMAT_URI },
    options: { tabSize: 2, insertSpaces: false },
  });
  assert.deepEqual(edits, [
    { range: { start: { line: 0, character: 0 }, end: { line: 3, character: 1 } }, newText: 'fn main(): int {\n    let x = 1 + 2;\n    return x;\n}\n' },
  ]);
});

test('shutdown is answered with null and the server then leaves with status 0', TIMEOUT, async () => {
  assert.equal(await connection.sendRequest('shutdown'), null);
  try {
    await connection.sendNotification('exit');
  } catch {
    // Already gone: quorls stops on "shutdown" itself.
  }
  assert.deepEqual(await exitPromise, { code: 0, signal: null });
  connection.dispose();
});

test('every document got exactly one publication per open or change', () => {
  const counts = {};
  for (const publication of publications) {
    counts[publication.uri] = (counts[publication.uri] || 0) + 1;
  }
  assert.deepEqual(counts, {
    [LEXICAL_URI]: 3,
    [SYNTAX_URI]: 1,
    [SEMANTIC_URI]: 1,
    [FEATURES_URI]: 1,
    [FORMAT_URI]: 1,
  });
});
