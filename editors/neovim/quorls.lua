-- Quor support for Neovim: the `quor` file type for *.quor files, four-space
-- indentation and `//` comments, and quorls attached to every Quor buffer.
--
-- Works with Neovim 0.7 (vim.lsp.start_client and buf_attach_client) and
-- with later versions (vim.lsp.start). Put this file on the runtime path as
-- lua/quorls.lua and call, from init.lua:
--
--   require('quorls').setup()                                  -- quorls on PATH
--   require('quorls').setup({ cmd = { '/usr/bin/quorls' } })   -- or a path
local M = {}

local config = { cmd = { 'quorls' } }
-- Neovim 0.7 has no vim.lsp.start: one client is started there and every
-- Quor buffer is attached to it.
local shared_client_id

local function buffer_directory(bufnr)
  return vim.fn.fnamemodify(vim.api.nvim_buf_get_name(bufnr), ':p:h')
end

local function attach(bufnr)
  if vim.lsp.start then
    vim.lsp.start({ name = 'quorls', cmd = config.cmd, root_dir = buffer_directory(bufnr) }, { bufnr = bufnr })
    return
  end
  local client = shared_client_id and vim.lsp.get_client_by_id(shared_client_id)
  if not client or client.is_stopped() then
    shared_client_id = vim.lsp.start_client({ name = 'quorls', cmd = config.cmd, root_dir = buffer_directory(bufnr) })
  end
  if shared_client_id then
    vim.lsp.buf_attach_client(bufnr, shared_client_id)
  end
end

function M.setup(options)
  config = vim.tbl_extend('force', config, options or {})
  local group = vim.api.nvim_create_augroup('quorls', { clear = true })
  vim.api.nvim_create_autocmd({ 'BufRead', 'BufNewFile' }, {
    group = group,
    pattern = '*.quor',
    command = 'setfiletype quor',
  })
  vim.api.nvim_create_autocmd('FileType', {
    group = group,
    pattern = 'quor',
    callback = function(args)
      vim.bo[args.buf].commentstring = '// %s'
      vim.bo[args.buf].expandtab = true
      vim.bo[args.buf].shiftwidth = 4
      vim.bo[args.buf].tabstop = 4
      attach(args.buf)
    end,
  })
end

--- The id of the quorls client that serves `bufnr` (0 or nil: the current buffer), or nil.
function M.client_id(bufnr)
  bufnr = (bufnr == nil or bufnr == 0) and vim.api.nvim_get_current_buf() or bufnr
  if vim.lsp.get_clients then
    local clients = vim.lsp.get_clients({ bufnr = bufnr, name = 'quorls' })
    return clients[1] and clients[1].id or nil
  end
  for id, client in pairs(vim.lsp.buf_get_clients(bufnr)) do
    if client.name == 'quorls' then
      return id
    end
  end
  return nil
end

return M
