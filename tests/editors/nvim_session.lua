-- A headless Neovim session with quorls attached through editors/neovim/quorls.lua,
-- the set-up a Neovim user copies. It reads what the editor shows: the
-- published diagnostics, a hover, a go-to-definition jump and the buffer
-- after formatting. Prints one line per check and "N passed, N failed", and
-- leaves Neovim with status 1 if any check failed.
--
-- Environment: QUORLS (the server), QUOR_NVIM_DIR (folder of quorls.lua),
-- QUOR_WORKDIR (an empty folder for the session's files).
local quorls = os.getenv('QUORLS')
local module_dir = os.getenv('QUOR_NVIM_DIR')
local workdir = os.getenv('QUOR_WORKDIR')
local WAIT_MS = 10000

local passed, failed = 0, 0

local function out(line)
  io.stdout:write(line .. '\n')
  io.stdout:flush()
end

local function check(name, ok, detail)
  if ok then
    passed = passed + 1
    out('ok - ' .. name)
  else
    failed = failed + 1
    out('FAILED - ' .. name .. (detail and ('\n    ' .. detail) or ''))
  end
end

-- A check that the rest of the session depends on: stop at once if it fails.
local function require_check(name, ok, detail)
  check(name, ok, detail)
  if not ok then
    error('cannot go on without: ' .. name, 0)
  end
end

local function check_equal(name, actual, expected)
  local same = vim.deep_equal(actual, expected)
  check(name, same, not same and ('expected ' .. vim.inspect(expected) .. '\n    got      ' .. vim.inspect(actual)) or nil)
end

local function write_file(name, lines)
  local path = workdir .. '/' .. name
  local file = assert(io.open(path, 'w'))
  file:write(table.concat(lines, '\n') .. '\n')
  file:close()
  return path
end

local function read_file(path)
  local file = assert(io.open(path, 'r'))
  local text = file:read('*a')
  file:close()
  return text
end

-- Count the publications per URI, so that a check can wait for the answer to
-- its own change instead of reading the list left by an earlier one.
local publications = {}
local original_publish = vim.lsp.handlers['textDocument/publishDiagnostics']
vim.lsp.handlers['textDocument/publishDiagnostics'] = function(err, result, ctx, conf)
  original_publish(err, result, ctx, conf)
  publications[result.uri] = (publications[result.uri] or 0) + 1
end

local function publication_count(bufnr)
  return publications[vim.uri_from_bufnr(bufnr)] or 0
end

local function wait_for_publication(bufnr, before)
  return vim.wait(WAIT_MS, function() return publication_count(bufnr) > before end, 20)
end

-- What a user sees in the diagnostic list, in the fields that the server decides.
local function shown_diagnostics(bufnr)
  local shown = {}
  for _, d in ipairs(vim.diagnostic.get(bufnr)) do
    table.insert(shown, {
      lnum = d.lnum, col = d.col, end_col = d.end_col,
      severity = d.severity, code = d.code, source = d.source, message = d.message,
    })
  end
  table.sort(shown, function(a, b) return a.lnum < b.lnum or (a.lnum == b.lnum and a.col < b.col) end)
  return shown
end

local function error_at(lnum, col, code, message)
  return { lnum = lnum, col = col, end_col = col + 1, severity = vim.diagnostic.severity.ERROR,
           code = code, source = 'quorls', message = message }
end

local function open(path)
  vim.cmd('edit ' .. vim.fn.fnameescape(path))
  return vim.api.nvim_get_current_buf()
end

local function replace_lines(bufnr, lines)
  local before = publication_count(bufnr)
  vim.api.nvim_buf_set_lines(bufnr, 0, -1, false, lines)
  return wait_for_publication(bufnr, before)
end

local function floating_windows()
  local found = {}
  for _, win in ipairs(vim.api.nvim_list_wins()) do
    if vim.api.nvim_win_get_config(win).relative ~= '' then
      table.insert(found, win)
    end
  end
  return found
end

local function session()
  require_check('the server and the Neovim module are given', quorls ~= nil and module_dir ~= nil and workdir ~= nil)
  package.path = module_dir .. '/?.lua;' .. package.path
  require('quorls').setup({ cmd = { quorls } })

  -- Diagnostics of the three stages, in one buffer that is edited in between.
  local errors_path = write_file('errors.quor', { 'fn f(): int { return "x"; }' })
  local errors = open(errors_path)
  check_equal('a .quor file gets the quor file type', vim.bo[errors].filetype, 'quor')
  require_check('quorls is attached to the buffer', vim.wait(WAIT_MS, function()
    return require('quorls').client_id(errors) ~= nil
  end, 20))
  require_check('diagnostics are published for the opened file', wait_for_publication(errors, 0))
  check_equal('a type error is shown at the return statement', shown_diagnostics(errors), {
    error_at(0, 14, 'E1005', "Return type mismatch: expected 'int', got 'string'"),
  })

  check('an edit is published again', replace_lines(errors, { 'let x = 1 # 2;' }))
  check_equal('a lexical error is shown at its character, hint included', shown_diagnostics(errors), {
    error_at(0, 10, 'E1000', "Unexpected character: '#' (Remove or replace the invalid character)"),
  })

  check('a second edit is published again', replace_lines(errors, { 'fn f() {', '    let x = 1', '}' }))
  check_equal('a syntax error is shown where the semicolon is missing', shown_diagnostics(errors), {
    error_at(2, 0, 'E1000', "Expected ';' after variable declaration"),
  })

  check('a fix is published', replace_lines(errors, { 'fn f() {', '    let x = 1;', '}' }))
  check_equal('fixing the error clears the list', shown_diagnostics(errors), {})

  -- Hover and go-to-definition in a second buffer served by the same server.
  local features_path = write_file('features.quor', {
    '/// Adds two numbers.',
    'fn add(a: int, b: int): int {',
    '    return a + b;',
    '}',
    '',
    'fn main(): int {',
    '    let total = add(1, 2);',
    '    return total;',
    '}',
  })
  local features = open(features_path)
  check('diagnostics are published for the second file', wait_for_publication(features, 0))
  check_equal('a file without errors shows none', shown_diagnostics(features), {})
  check_equal('both buffers share one quorls client', require('quorls').client_id(features),
    require('quorls').client_id(errors))

  vim.api.nvim_win_set_cursor(0, { 7, 17 })
  local responses = vim.lsp.buf_request_sync(features, 'textDocument/hover',
    vim.lsp.util.make_position_params(), WAIT_MS) or {}
  local _, response = next(responses)
  check_equal('the hover on a call is the function signature and its doc comment',
    response and response.result and response.result.contents, {
      kind = 'markdown', value = '```quor\nfn add(a: int, b: int): int\n```\n\nAdds two numbers.\n',
    })

  vim.lsp.buf.hover()
  check('the hover opens a floating window', vim.wait(WAIT_MS, function() return #floating_windows() > 0 end, 20))
  local float = floating_windows()[1]
  local float_text = float and table.concat(vim.api.nvim_buf_get_lines(vim.api.nvim_win_get_buf(float), 0, -1, false), '\n') or ''
  check('the floating window shows the signature', float_text:find('fn add(a: int, b: int): int', 1, true) ~= nil, float_text)
  check('the floating window shows the doc comment', float_text:find('Adds two numbers.', 1, true) ~= nil, float_text)
  if float then
    vim.api.nvim_win_close(float, true)
  end

  vim.api.nvim_set_current_buf(features)
  vim.api.nvim_win_set_cursor(0, { 7, 17 })
  vim.lsp.buf.definition()
  check('go-to-definition moves the cursor', vim.wait(WAIT_MS, function()
    return vim.api.nvim_win_get_cursor(0)[1] ~= 7
  end, 20))
  check_equal('the jump lands at the start of the declaration line', vim.api.nvim_win_get_cursor(0), { 2, 0 })
  check_equal('the jump stays in the same buffer', vim.api.nvim_get_current_buf(), features)

  -- Formatting rewrites the buffer; writing it saves the formatted text.
  local format_path = write_file('format.quor', { 'fn main(): int {', 'let x=1+2;', 'return x;', '}' })
  local format = open(format_path)
  wait_for_publication(format, 0)
  vim.lsp.buf.formatting_sync(nil, WAIT_MS)
  check_equal('the formatted buffer has four-space indentation and spaced operators',
    vim.api.nvim_buf_get_lines(format, 0, -1, false),
    { 'fn main(): int {', '    let x = 1 + 2;', '    return x;', '}' })
  vim.cmd('silent write')
  check_equal('the saved file holds the formatted text', read_file(format_path),
    'fn main(): int {\n    let x = 1 + 2;\n    return x;\n}\n')

  -- Leaving: the client sends shutdown and exit, and the server goes away.
  local id = require('quorls').client_id(format)
  local client = id and vim.lsp.get_client_by_id(id)
  vim.lsp.stop_client(id)
  check('stopping the client ends the server', client ~= nil and vim.wait(WAIT_MS, function()
    return client.is_stopped()
  end, 20))
end

local ok, err = pcall(session)
if not ok then
  check('the session ran to its end', false, tostring(err))
end
out(string.format('%d passed, %d failed', passed, failed))
if failed > 0 then
  vim.cmd('cquit 1')
else
  vim.cmd('qall!')
end
