#pragma once

namespace quorvane::jscript {

/// What the dialect has beyond the language, written in the language.
inline constexpr const char* kPrelude = R"js((function (global) {
  var day = 86400000, first = 25569;

  function hide(name, value) {
    Object.defineProperty(global, name,
                          { value: value, writable: true, configurable: true, enumerable: false });
  }

  // A date's local time as days since 30 December 1899, and back. Below zero the time of the day
  // still counts forwards.
  hide("qv$plain", function (value) {
    if (value instanceof Date) {
      var time = Date.UTC(value.getFullYear(), value.getMonth(), value.getDate(),
                          value.getHours(), value.getMinutes(), value.getSeconds(),
                          value.getMilliseconds());
      var whole = Math.floor(time / day) + first;
      var part = (time - (whole - first) * day) / day;
      return { days: whole < 0 ? whole - part : whole + part };
    }
    if (value instanceof String || value instanceof Number || value instanceof Boolean) {
      return value.valueOf();
    }
    return value;
  });
  hide("qv$date", function (days) {
    var whole = days < 0 ? Math.ceil(days) : Math.floor(days);
    var utc = new Date((whole - first) * day + Math.round(Math.abs(days - whole) * day));
    return new Date(utc.getUTCFullYear(), utc.getUTCMonth(), utc.getUTCDate(), utc.getUTCHours(),
                    utc.getUTCMinutes(), utc.getUTCSeconds(), utc.getUTCMilliseconds());
  });
  Date.prototype.getVarDate = function () { return this; };
  Date.prototype.getYear = function () {
    var year = this.getFullYear();
    return year >= 1900 && year < 2000 ? year - 1900 : year;
  };

  hide("qv$variable", function (name, get, put) {
    Object.defineProperty(global, name, { get: function () { return get(); },
                                          set: function (value) { put(value); },
                                          configurable: true, enumerable: true });
  });

  hide("Enumerator", function (collection) {
    var items = qv$items(collection), at = 0;
    this.atEnd = function () { return at >= items.length; };
    this.item = function () { return items[at]; };
    this.moveNext = function () { if (at < items.length) at++; };
    this.moveFirst = function () { at = 0; };
  });

  hide("VBArray", function (array) {
    var extents = qv$extents(array);
    this.dimensions = function () { return extents.length; };
    this.lbound = function () { return 0; };
    this.ubound = function (dimension) { return extents[(dimension || 1) - 1] - 1; };
    this.toArray = function () { return qv$items(array); };
    this.getItem = function () {
      var at = 0, step = 1;
      for (var i = 0; i < extents.length; i++) {
        if (!(arguments[i] >= 0 && arguments[i] < extents[i])) {
          throw new RangeError("Subscript out of range");
        }
        at += arguments[i] * step;
        step *= extents[i];
      }
      return qv$items(array)[at];
    };
  });

  hide("ActiveXObject", function (name) { return Server[qv$call("CreateObject")](name); });

  var numbers = { ReferenceError: 5009, TypeError: 5007, SyntaxError: 1002, RangeError: 5029,
                  URIError: 5025 };
  function own(name, find) {
    Object.defineProperty(Error.prototype, name, {
      get: function () { return find(this); },
      set: function (value) {
        Object.defineProperty(this, name, { value: value, writable: true, configurable: true,
                                            enumerable: true });
      },
      configurable: true });
  }
  own("description", function (error) { return error.message; });
  own("number", function (error) { return (0x800A0000 | (numbers[error.name] || 5022)) | 0; });

  hide("ScriptEngine", function () { return "JScript"; });
  hide("ScriptEngineMajorVersion", function () { return 5; });
  hide("ScriptEngineMinorVersion", function () { return 8; });
  hide("ScriptEngineBuildVersion", function () { return 0; });
  hide("CollectGarbage", function () {});
  delete global.Duktape;
})(this);)js";

}  // namespace quorvane::jscript
