'use strict';
// The extension's client side, run outside VS Code: the editor API and the
// language client are replaced by recorders, so these tests see which
// server the extension starts, for which documents, and when it restarts it.
const test = require('node:test');
const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const Module = require('node:module');

const ROOT = path.join(__dirname, '..');

function makeFakes({ serverPath, startFails = false } = {}) {
  const state = {
    settings: { 'server.path': serverPath },
    clients: [],
    commands: new Map(),
    configListeners: [],
    errors: [],
  };
  class FakeLanguageClient {
    constructor(id, name, serverOptions, clientOptions) {
      Object.assign(this, { id, name, serverOptions, clientOptions, started: false, stopped: false });
      state.clients.push(this);
    }
    async start() {
      if (startFails) {
        throw new Error('spawn ENOENT');
      }
      this.started = true;
    }
    async stop() {
      this.stopped = true;
    }
  }
  const vscode = {
    workspace: {
      getConfiguration(section) {
        assert.equal(section, 'quor');
        return { get: (key) => state.settings[key] };
      },
      onDidChangeConfiguration(listener) {
        state.configListeners.push(listener);
        return { dispose() {} };
      },
    },
    commands: {
      registerCommand(name, handler) {
        state.commands.set(name, handler);
        return { dispose() {} };
      },
    },
    window: {
      showErrorMessage(message) {
        state.errors.push(message);
      },
    },
  };
  return { state, vscode, client: { LanguageClient: FakeLanguageClient } };
}

function loadExtension(fakes) {
  const originalLoad = Module._load;
  Module._load = function (request, parent, isMain) {
    if (request === 'vscode') {
      return fakes.vscode;
    }
    if (request === 'vscode-languageclient/node') {
      return fakes.client;
    }
    return originalLoad.call(this, request, parent, isMain);
  };
  try {
    const file = require.resolve(path.join(ROOT, 'extension.js'));
    delete require.cache[file];
    return require(file);
  } finally {
    Module._load = originalLoad;
  }
}

async function flush() {
  await new Promise((resolve) => setImmediate(resolve));
}

function changeOf(...sections) {
  return { affectsConfiguration: (section) => sections.includes(section) };
}

test('activation starts the configured quorls over stdio for Quor documents', async () => {
  const fakes = makeFakes({ serverPath: '/opt/quor/bin/quorls' });
  const extension = loadExtension(fakes);
  await extension.activate({ subscriptions: [] });

  assert.equal(fakes.state.clients.length, 1);
  const client = fakes.state.clients[0];
  assert.equal(client.started, true);
  // The id names the trace setting, quor.trace.server.
  assert.equal(client.id, 'quor');
  for (const mode of ['run', 'debug']) {
    assert.deepEqual(client.serverOptions[mode], { command: '/opt/quor/bin/quorls', args: [] });
    assert.equal(client.serverOptions[mode].transport, undefined, 'no transport means stdio');
  }
  assert.deepEqual(client.clientOptions.documentSelector, [
    { scheme: 'file', language: 'quor' },
    { scheme: 'untitled', language: 'quor' },
  ]);
});

test('an empty or unset server path falls back to quorls on PATH', async () => {
  for (const serverPath of [undefined, '', '   ']) {
    const fakes = makeFakes({ serverPath });
    await loadExtension(fakes).activate({ subscriptions: [] });
    assert.equal(fakes.state.clients[0].serverOptions.run.command, 'quorls');
  }
});

test('surrounding blanks in the server path are dropped', async () => {
  const fakes = makeFakes({ serverPath: '  /usr/bin/quorls ' });
  await loadExtension(fakes).activate({ subscriptions: [] });
  assert.equal(fakes.state.clients[0].serverOptions.run.command, '/usr/bin/quorls');
});

test('changing quor.server.path stops the running server and starts the new one', async () => {
  const fakes = makeFakes({ serverPath: '/old/quorls' });
  const context = { subscriptions: [] };
  await loadExtension(fakes).activate(context);
  assert.equal(context.subscriptions.length, 2);

  fakes.state.settings['server.path'] = '/new/quorls';
  fakes.state.configListeners.forEach((listener) => listener(changeOf('quor', 'quor.server.path')));
  await flush();

  const [first, second] = fakes.state.clients;
  assert.equal(first.stopped, true);
  assert.equal(second.serverOptions.run.command, '/new/quorls');
  assert.equal(second.started, true);
});

test('other setting changes leave the server alone', async () => {
  const fakes = makeFakes({ serverPath: '/opt/quorls' });
  await loadExtension(fakes).activate({ subscriptions: [] });
  fakes.state.configListeners.forEach((listener) => listener(changeOf('editor.tabSize')));
  await flush();
  assert.equal(fakes.state.clients.length, 1);
  assert.equal(fakes.state.clients[0].stopped, false);
});

test('the restart command replaces the client', async () => {
  const fakes = makeFakes({ serverPath: '/opt/quorls' });
  await loadExtension(fakes).activate({ subscriptions: [] });
  await fakes.state.commands.get('quor.restartServer')();
  assert.equal(fakes.state.clients.length, 2);
  assert.equal(fakes.state.clients[0].stopped, true);
  assert.equal(fakes.state.clients[1].started, true);
});

test('deactivation stops the server', async () => {
  const fakes = makeFakes({ serverPath: '/opt/quorls' });
  const extension = loadExtension(fakes);
  await extension.activate({ subscriptions: [] });
  await extension.deactivate();
  assert.equal(fakes.state.clients[0].stopped, true);
});

test('a server that cannot be started is reported with its path and the setting to fix', async () => {
  const fakes = makeFakes({ serverPath: '/missing/quorls', startFails: true });
  await loadExtension(fakes).activate({ subscriptions: [] });
  assert.equal(fakes.state.errors.length, 1);
  assert.match(fakes.state.errors[0], /'\/missing\/quorls'/);
  assert.match(fakes.state.errors[0], /quor\.server\.path/);
});

test('the manifest ties .quor files to the grammar, the configuration and the client', () => {
  const manifest = JSON.parse(fs.readFileSync(path.join(ROOT, 'package.json'), 'utf8'));
  assert.deepEqual(manifest.activationEvents, ['onLanguage:quor']);
  assert.equal(manifest.main, './extension.js');
  const [language] = manifest.contributes.languages;
  assert.equal(language.id, 'quor');
  assert.deepEqual(language.extensions, ['.quor']);
  const configuration = JSON.parse(fs.readFileSync(path.join(ROOT, language.configuration), 'utf8'));
  assert.deepEqual(configuration.comments, { lineComment: '//', blockComment: ['/*', '*/'] });
  assert.deepEqual(configuration.brackets, [['{', '}'], ['[', ']'], ['(', ')']]);

  const [grammar] = manifest.contributes.grammars;
  assert.equal(grammar.language, 'quor');
  const grammarFile = JSON.parse(fs.readFileSync(path.join(ROOT, grammar.path), 'utf8'));
  assert.equal(grammarFile.scopeName, grammar.scopeName);

  const setting = manifest.contributes.configuration.properties['quor.server.path'];
  assert.equal(setting.default, require(path.join(ROOT, 'server.js')).DEFAULT_SERVER);
  assert.ok(manifest.dependencies['vscode-languageclient'], 'the client library ships with the extension');
});

test('indentation rules indent after an opening brace and outdent a closing one', () => {
  const configuration = JSON.parse(fs.readFileSync(path.join(ROOT, 'language-configuration.json'), 'utf8'));
  const increase = new RegExp(configuration.indentationRules.increaseIndentPattern);
  const decrease = new RegExp(configuration.indentationRules.decreaseIndentPattern);
  assert.ok(increase.test('fn main(): int {'));
  assert.ok(increase.test('    let xs = ['));
  assert.ok(!increase.test('let x = { };'));
  assert.ok(!increase.test('// a comment {'));
  assert.ok(decrease.test('    }'));
  assert.ok(decrease.test('] ;'));
  assert.ok(!decrease.test('let y = 1;'));
});
