-- Works on a description in Neovim with the language server, which the settings of
-- the document have started, and prints what comes of it.

local function say(...) io.stdout:write(string.format(...), '\n') end

local function waitFor(what, condition)
  if not vim.wait(5000, condition, 2) then say('%s: waited in vain', what) end
end

-- Moves the cursor to the first text that matches, and so many characters on.
local function moveTo(pattern, characters)
  vim.fn.cursor(1, 1)
  vim.fn.search('\\V' .. pattern, 'c')
  for _ = 1, characters do vim.cmd('normal! l') end
end

local function request(method, extra)
  local params = vim.tbl_extend('force', vim.lsp.util.make_position_params(0, 'utf-16'), extra or {})
  local replies = vim.lsp.buf_request_sync(0, method, params, 5000)
  for _, reply in pairs(replies or {}) do return reply.result end
end

local function showDiagnostics(title)
  say('%s', title)
  for _, item in ipairs(vim.diagnostic.get(0)) do
    local line = vim.fn.getline(item.lnum + 1)
    say('  %d %s %s', item.lnum + 1, item.code, line:sub(item.col + 1, item.end_col))
  end
end

local function showHover(pattern)
  moveTo(pattern, 1)
  say('hover %s: %s', pattern, request('textDocument/hover').contents.value:gsub('\n+', ' / '))
end

local function showCompletion(pattern, characters)
  moveTo(pattern, characters)
  local words = {}
  local list = request('textDocument/completion')
  for _, item in ipairs(vim.lsp.util.text_document_completion_list_to_complete_items(list, '')) do
    words[#words + 1] = item.abbr
  end
  say('completion %s: %s', pattern, table.concat(words, ' '))
end

local function showSymbols(symbols, indent)
  for _, symbol in ipairs(symbols) do
    say('%s%s %s', indent, vim.lsp.protocol.SymbolKind[symbol.kind], symbol.name)
    showSymbols(symbol.children or {}, indent .. '  ')
  end
end

local function showDefinition(pattern, characters)
  moveTo(pattern, characters)
  local from = vim.fn.line('.')
  vim.lsp.buf.definition()
  waitFor('definition', function() return vim.fn.line('.') ~= from end)
  say('definition %s: from line %d to line %d, %s', pattern, from, vim.fn.line('.'),
      vim.fn.expand('<cword>'))
end

local id = DriverFeature
waitFor('findings', function() return #vim.diagnostic.get(0) > 0 end)
showDiagnostics('findings')

-- What the user is asked to choose: the first action.
vim.ui.select = function(items, _, choose)
  say('action %s', (items[1][2] or items[1]).title)
  choose(items[1])
end
local findings = #vim.diagnostic.get(0)
moveTo('DefaultValu', 2)
vim.lsp.buf.code_action()
waitFor('action', function() return #vim.diagnostic.get(0) < findings end)
say('line 5: %s', vim.fn.getline(5))
vim.fn.setline(11, (vim.fn.getline(11):gsub('"x"', '"3"')))
waitFor('change', function() return #vim.diagnostic.get(0) == findings - 3 end)
showDiagnostics('findings after the changes')

showHover('<FeatureStaticGroup')
showHover('LoadVORNCallbackHandler')
showHover('FloatEntry')
showCompletion('<Option', 1)
showCompletion('"On" PSC', 1)
showCompletion('AddCallbackRoutine=""', 20)
showCompletion(' Name="Off"', 1)
say('symbols')
showSymbols(request('textDocument/documentSymbol'), '  ')
showDefinition('"On" PSC', 1)
showDefinition('Jog', 1)

vim.lsp.stop_client(id)
waitFor('end', function() return vim.lsp.client_is_stopped(id) end)
vim.cmd('qall!')
