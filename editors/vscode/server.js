'use strict';
// How the extension starts quorls, kept apart from the VS Code API so that
// the same description can be used outside the editor: the client tests
// start the server exactly the way the extension does.

/** The executable that is run when `quor.server.path` is empty or unset. */
const DEFAULT_SERVER = 'quorls';

/** The documents the client hands to the server: Quor files on disk and unsaved ones. */
const DOCUMENT_SELECTOR = [
  { scheme: 'file', language: 'quor' },
  { scheme: 'untitled', language: 'quor' },
];

/**
 * The executable description for vscode-languageclient: the configured path,
 * no arguments (quorls takes none) and the default transport, which is the
 * server's standard input and output.
 */
function serverExecutable(configuredPath) {
  const trimmed = typeof configuredPath === 'string' ? configuredPath.trim() : '';
  return { command: trimmed === '' ? DEFAULT_SERVER : trimmed, args: [] };
}

module.exports = { DEFAULT_SERVER, DOCUMENT_SELECTOR, serverExecutable };
