local host = ...

local LrSocket = {}

local function ignore() end

function LrSocket.bind(options)
    if options.mode ~= "receive" then
        error("LrSocket.bind: only the mode \"receive\" is modelled by the stand-in.", 2)
    end
    local id
    local socket = host.sealed("LrSocket object", {
        reconnect = function()
            host.sockets.reconnect(id)
        end,
        close = function()
            host.sockets.close(id)
        end,
    })
    local onMessage, onError = options.onMessage or ignore, options.onError or ignore
    local onConnected, onClosed = options.onConnected or ignore, options.onClosed or ignore

    -- These are called outside any task, so none of them can yield.
    id = host.sockets.listen(options.port, {
        onConnected = function(port) onConnected(socket, port) end,
        onMessage = function(message) onMessage(socket, message) end,
        onClosed = function() onClosed(socket) end,
        onError = function(problem) onError(socket, problem) end,
    })
    options.functionContext:addCleanupHandler(function()
        socket:close()
    end)
    return socket
end

return host.sealed("LrSocket", LrSocket)
