-- Neovim's own LSP client against tarnwick-lsp: attach to a script,
-- wait for its diagnostics, ask for a hover and a completion, fix the
-- faulty line and see the error go, then stop the server cleanly.
--   TARNWICK_LSP=path/to/tarnwick-lsp TARNWICK_LSP_TMP=dir \
--     nvim --headless --clean -c "luafile nvim_client.lua"
-- Every wait has a time limit; any failure ends Neovim with an error status.

local failures = {}
local function check(ok, what)
  if not ok then
    table.insert(failures, what)
  end
end

local function run()
  local dir = os.getenv('TARNWICK_LSP_TMP') or vim.fn.tempname()
  vim.fn.mkdir(dir, 'p')
  local path = dir .. '/client.mrc'
  vim.fn.writefile({ 'alias t {', '  echo -a $calc(1 +', '}' }, path)
  vim.cmd('edit ' .. vim.fn.fnameescape(path))
  local buf = vim.api.nvim_get_current_buf()

  local exit_code
  local client = vim.lsp.start_client({
    name = 'tarnwick',
    cmd = { os.getenv('TARNWICK_LSP') },
    root_dir = dir,
    on_exit = function(code) exit_code = code end,
  })
  check(client ~= nil, 'the server did not start')
  if not client then return end
  vim.lsp.buf_attach_client(buf, client)

  local function errors()
    return vim.diagnostic.get(buf, { severity = vim.diagnostic.severity.ERROR })
  end
  check(vim.wait(20000, function() return #errors() > 0 end, 50), 'no diagnostics after open')
  local first = errors()[1]
  check(first and first.lnum == 1 and first.col == 10, 'the error is not at $calc on line 2')
  check(first and first.source == 'tarnwick', 'the diagnostic has no source')

  local uri = vim.uri_from_bufnr(buf)
  local function ask(method, line, character)
    local replies = vim.lsp.buf_request_sync(buf, method, {
      textDocument = { uri = uri },
      position = { line = line, character = character },
    }, 10000) or {}
    local reply = replies[client] or {}
    return reply.result
  end

  local hover = ask('textDocument/hover', 1, 12)
  check(hover and hover.contents and hover.contents.value:find('$calc(', 1, true),
    'no hover with the syntax of $calc')

  local found = false
  for _, item in ipairs(ask('textDocument/completion', 1, 12) or {}) do
    found = found or item.label == '$calc'
  end
  check(found, 'no $calc among the completions after "$c"')

  vim.api.nvim_buf_set_text(buf, 1, 19, 1, 19, { ')' })
  check(vim.wait(20000, function() return #errors() == 0 end, 50),
    'the error stayed after the line was fixed')

  vim.lsp.stop_client(client)
  check(vim.wait(10000, function() return exit_code ~= nil end, 50), 'the server did not stop')
  check(exit_code == 0, 'exit status ' .. tostring(exit_code) .. ' after shutdown')
end

local ok, err = pcall(run)
check(ok, tostring(err))
if #failures > 0 then
  io.stderr:write('nvim_client: ' .. table.concat(failures, '\nnvim_client: ') .. '\n')
  vim.cmd('cquit 1')
else
  vim.cmd('qall!')
end
