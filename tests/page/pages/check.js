// The functions of self-checking pages. Each page quits the program by done(), with code 1 if a check has failed.

var failures = 0;
var checks = 0;

function check(what, isSo) {
    ++checks;
    if (isSo !== true) ++failures;
    external.console.log((isSo === true ? 'ok: ' : 'FAILED: ') + what);
}

function same(what, actual, expected) {
    check(what + (actual === expected ? '' : ': ' + actual + ' instead of ' + expected), actual === expected);
}

// The status that a function throws, which is the number of an error of a native call; null if it throws nothing.
function thrownBy(action) {
    try {
        action();
    } catch (e) {
        return typeof e.number === 'number' ? e.number >>> 0 : String(e);
    }
    return null;
}

function done() {
    external.console.log('checks: ' + checks);
    external.window.quit(failures ? 1 : 0);
}

// Polls a condition, then calls `then`.
function until(condition, then) {
    (function poll() {
        if (condition()) then();
        else setTimeout(poll, 20);
    })();
}

window.onerror = function (message, source, line) {
    check('no error: ' + message + ' at line ' + line, false);
    done();
};
