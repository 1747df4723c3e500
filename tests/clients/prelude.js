// What stands before the calls of the JScript client: each answer is written as
//     <file and line of the case> <answer>
// with texts quoted, all but printable ASCII as \uXXXX, and runs of more than 9 characters counted.

function repeat(text, count) {
    if (count == 0) return "";
    var half = repeat(text, Math.floor(count / 2));
    return count % 2 ? half + half + text : half + half;
}

function escaped(character) {
    var code = character.charCodeAt(0);
    if (character == "\"" || character == "\\") return "\\" + character;
    if (code >= 32 && code < 127) return character;
    return "\\u" + ("000" + code.toString(16)).slice(-4);
}

function run(unit, count) {
    return count > 9 ? unit + "\\*" + count + ";" : repeat(unit, count);
}

function quoted(text) {
    var written = "";
    for (var i = 0, next; i < text.length; i = next) {
        for (next = i + 1; next < text.length && text.charAt(next) == text.charAt(i);) ++next;
        written += run(escaped(text.charAt(i)), next - i);
    }
    return "\"" + written + "\"";
}

function variable(held) {
    switch (typeof held) {
        case "string": return quoted(held);
        case "boolean": return held ? "True" : "False";
        case "undefined": return "Empty";
        default: return held === null ? "Null" : String(held);
    }
}

// The language has a single numeric type.
function value(result) {
    return variable(result) + (typeof result == "number" ? "?" : "");
}

// The run-time number of a failure. When a call breaks the automation rules, this engine passes the code on
// without a description of its own; scripts know these failures by these numbers.
function failure(error) {
    var code = error.number >>> 0;
    switch (code) {
        case 0x80020003: return "error 438";
        case 0x80020005: return "error 13";
        case 0x8002000A: return "error 6";
        case 0x8002000E: case 0x8002000F: return "error 450";
    }
    if (code >>> 16 != 0x800A) return "failure " + code.toString(16);
    return "error " + (code & 0xFFFF) + (error.description ? "" : " without description");
}

function skip(place, reason) {
    WScript.Echo(place + " skip: " + reason);
}

function answer(place, call, variables) {
    var written;
    try {
        written = value(call(variables));
    } catch (error) {
        written = failure(error);
    }
    for (var i = 0; i < variables.length; ++i) written += " ref " + variable(variables[i]);
    WScript.Echo(place + " " + written);
}

var o;

