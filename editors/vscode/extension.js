'use strict';
// The VS Code side of Quor support: starts quorls for .quor files and restarts
// it when its path setting changes or on the "Restart" command.
const vscode = require('vscode');
const { LanguageClient } = require('vscode-languageclient/node');
const { DOCUMENT_SELECTOR, serverExecutable } = require('./server');

const CLIENT_ID = 'quor';
const CLIENT_NAME = 'Quor Language Server';

let client;

function configuredServerPath() {
  return vscode.workspace.getConfiguration('quor').get('server.path');
}

function createClient() {
  const executable = serverExecutable(configuredServerPath());
  // The same executable serves normal runs and debug sessions of the extension.
  const serverOptions = { run: executable, debug: executable };
  const clientOptions = { documentSelector: DOCUMENT_SELECTOR };
  return new LanguageClient(CLIENT_ID, CLIENT_NAME, serverOptions, clientOptions);
}

async function startClient() {
  client = createClient();
  try {
    await client.start();
  } catch (error) {
    const command = serverExecutable(configuredServerPath()).command;
    vscode.window.showErrorMessage(
      `Could not start the Quor language server '${command}': ${error && error.message ? error.message : error}. ` +
        'Set "quor.server.path" to the quorls executable.');
  }
}

async function stopClient() {
  if (!client) {
    return;
  }
  const running = client;
  client = undefined;
  try {
    await running.stop();
  } catch {
    // quorls leaves as soon as it has answered "shutdown", so the "exit"
    // notification that follows can meet a closed pipe; the server is gone
    // either way.
  }
}

async function restartClient() {
  await stopClient();
  await startClient();
}

async function activate(context) {
  context.subscriptions.push(
    vscode.commands.registerCommand('quor.restartServer', restartClient),
    vscode.workspace.onDidChangeConfiguration((event) => {
      if (event.affectsConfiguration('quor.server.path')) {
        restartClient();
      }
    }),
  );
  await startClient();
}

function deactivate() {
  return stopClient();
}

module.exports = { activate, deactivate };
