pragma Singleton
import QtQml 2.15

/*!
    Decides what "back" means: a stack of handlers, of which the one pushed last is asked first. A handler is a
    function, or an object with a function back(); it returns true when it has consumed the request, otherwise
    the next one below is asked.

    An object drops out when it is destroyed. A function stays until it is removed, so whoever pushes one
    removes it in Component.onDestruction.
*/
QtObject {
    /*! How many handlers there are. */
    readonly property int depth: _entries.length

    // Each with its "handler" and "drop", which runs when the handler is destroyed.
    property var _entries: []

    /*! Puts the handler on top; one that is on the stack already moves there. */
    function push(handler) {
        if (typeof handler !== "function" && !_hasBack(handler)) {
            console.warn("BackManager: a handler must be a function or an object with a function back().")
            return
        }
        const entry = _find(handler) || _watch(handler)
        _entries = _entries.filter(other => other !== entry).concat([entry])
    }

    /*! Takes the handler off the stack, wherever it stands; an unknown one is ignored. */
    function remove(handler) {
        const entry = _find(handler)
        if (!entry)
            return
        if (handler.Component)
            handler.Component.destruction.disconnect(entry.drop)
        _entries = _entries.filter(other => other !== entry)
    }

    /*! Whether a handler consumed the request. */
    function back() : bool {
        // Handlers push and remove while they are asked.
        const asked = _entries.slice().reverse()
        return asked.some(entry => _entries.includes(entry) && _ask(entry.handler))
    }

    function _ask(handler) : bool {
        if (typeof handler === "function")
            return handler() === true
        // A destroyed object has no functions any more.
        if (!_hasBack(handler)) {
            remove(handler)
            return false
        }
        return handler.back() === true
    }

    function _hasBack(handler) : bool {
        return handler !== null && handler !== undefined && typeof handler.back === "function"
    }

    function _find(handler) {
        return _entries.find(entry => entry.handler === handler)
    }

    function _watch(handler) {
        const entry = { handler: handler, drop: () => remove(handler) }
        if (handler.Component)
            handler.Component.destruction.connect(entry.drop)
        return entry
    }
}
