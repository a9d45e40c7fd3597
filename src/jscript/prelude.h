#pragma once

namespace quorvane::jscript {

/// What the dialect has beyond the language, written in the language.
inline constexpr const char* kPrelude = R"js((function (global) {
  var day = 86400000, first = 25569;


  function method(of, name, value) {
    Object.defineProperty(of, name, { value: value, writable: true, configurable: true,
                                      enumerable: false });
  }
  function hide(name, value) { method(global, name, value); }

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

  method(Date.prototype, "getVarDate", function () { return this; });
  method(Date.prototype, "getYear", function () {
    var year = this.getFullYear();
    return year >= 1900 && year < 2000 ? year - 1900 : year;
  });

  // Texts of dates, and dates of texts, in the forms that pages know.
  var weekdays = ["Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"];
  var months = ["January", "February", "March", "April", "May", "June", "July", "August",
                "September", "October", "November", "December"];
  var zones = { utc: 0, gmt: 0, z: 0, est: -300, edt: -240, cst: -360, cdt: -300, mst: -420,
                mdt: -360, pst: -480, pdt: -420 };

  function two(number) { return (number < 10 ? "0" : "") + number; }
  function dateText(name, text) {
    method(Date.prototype, name, function () { return isNaN(this.getTime()) ? "NaN" : text(this); });
  }
  function weekday(date) { return weekdays[date.getDay()].substr(0, 3); }
  function month(date) { return months[date.getMonth()].substr(0, 3); }
  function timeOf(date) {
    return two(date.getHours()) + ":" + two(date.getMinutes()) + ":" + two(date.getSeconds());
  }
  function zoneOf(date) {
    var minutes = -date.getTimezoneOffset(), size = Math.abs(minutes);
    if (size === 0) return "UTC";
    return "UTC" + (minutes < 0 ? "-" : "+") + two(Math.floor(size / 60)) + two(size % 60);
  }
  function longDate(date) {
    return weekdays[date.getDay()] + ", " + months[date.getMonth()] + " " + two(date.getDate()) +
           ", " + date.getFullYear();
  }
  function longTime(date) {
    var hours = date.getHours();
    return (hours % 12 || 12) + timeOf(date).substr(2) + (hours < 12 ? " AM" : " PM");
  }
  function universal(date) {
    var moved = new Date(date.getTime() + date.getTimezoneOffset() * 60000);
    return weekday(moved) + ", " + moved.getDate() + " " + month(moved) + " " +
           moved.getFullYear() + " " + timeOf(moved) + " UTC";
  }
  dateText("toString", function (date) {
    return weekday(date) + " " + month(date) + " " + date.getDate() + " " + timeOf(date) + " " +
           zoneOf(date) + " " + date.getFullYear();
  });
  dateText("toDateString", function (date) {
    return weekday(date) + " " + month(date) + " " + date.getDate() + " " + date.getFullYear();
  });
  dateText("toTimeString", function (date) { return timeOf(date) + " " + zoneOf(date); });
  dateText("toUTCString", universal);
  dateText("toGMTString", universal);
  dateText("toLocaleDateString", longDate);
  dateText("toLocaleTimeString", longTime);
  dateText("toLocaleString", function (date) { return longDate(date) + " " + longTime(date); });

  function placeOf(list, word) {
    for (var i = 0; i < list.length; i++) {
      if (word.length > 2 && list[i].substr(0, word.length).toLowerCase() === word) return i;
    }
    return -1;
  }

  var Plain = Date;
  function dateOf(text) {
    var time = Plain.parse(text = String(text));
    if (!isNaN(time)) return time;
    var words = text.replace(/\([^)]*\)/g, " ").match(
        /[a-z]+|\d+(:\d+)+|\d+[\/-]\d+[\/-]\d+|[+-]?\d+|[^\s,.]/gi) || [];
    var numbers = [], inMonth = -1, clock = [0, 0, 0], half = "", zone = null;
    for (var i = 0; i < words.length; i++) {
      var word = words[i].toLowerCase(), parts = word.split(/[:\/-]/);
      if (/:/.test(word)) {
        clock = [+parts[0], +parts[1], +(parts[2] || 0)];
      } else if (/^\d+\D/.test(word)) {
        if (parts[0] > 31) parts.push(parts.shift());
        inMonth = parts[0] - 1;
        numbers = [+parts[1], +parts[2]];
      } else if (/\d/.test(word)) {
        var number = +word;
        if (/^\d/.test(word) || zone === null) numbers.push(Math.abs(number));
        else zone = Math.abs(number) < 24 ? number * 60
                                          : (number - number % 100) / 100 * 60 + number % 100;
      } else if (word === "am" || word === "pm") {
        half = word;
      } else if (zones.hasOwnProperty(word)) {
        zone = zones[word];
      } else if (placeOf(months, word) >= 0) {
        inMonth = placeOf(months, word);
      } else if (placeOf(weekdays, word) < 0) {
        return NaN;
      }
    }
    if (numbers.length !== 2 || inMonth < 0 || inMonth > 11) return NaN;
    if (numbers[0] > 31) numbers.reverse();
    if (half) clock[0] = clock[0] % 12 + (half === "pm" ? 12 : 0);
    var year = numbers[1] < 100 ? numbers[1] + 1900 : numbers[1];
    time = zone === null
        ? new Plain(year, inMonth, numbers[0], clock[0], clock[1], clock[2]).getTime()
        : Plain.UTC(year, inMonth, numbers[0], clock[0], clock[1], clock[2]);
    return time - (zone || 0) * 60000;
  }
  hide("Date", function (a, b, c, d, e, f, g) {
    var count = arguments.length;
    if (!(this instanceof Plain)) return new Plain().toString();
    if (count === 0) return new Plain();
    if (count === 1) {
      if (a !== null && a !== undefined) a = a.valueOf();
      return new Plain(typeof a === "string" ? dateOf(a) : a instanceof Plain ? a.getTime() : a);
    }
    return new Plain(a, b, count > 2 ? c : 1, count > 3 ? d : 0, count > 4 ? e : 0,
                     count > 5 ? f : 0, count > 6 ? g : 0);
  });
  Date.prototype = Plain.prototype;
  method(Date.prototype, "constructor", Date);
  method(Date, "parse", dateOf);
  method(Date, "UTC", Plain.UTC);
  method(Date, "now", Plain.now);

  // What the last match found.
  var exec = RegExp.prototype.exec, match = String.prototype.match, last = null;
  method(RegExp.prototype, "exec", function (text) {
    var found = exec.call(this, text);
    if (found) last = found;
    return found;
  });
  method(RegExp.prototype, "test", function (text) { return this.exec(text) !== null; });
  method(String.prototype, "match", function (pattern) {
    return pattern instanceof RegExp && !pattern.global ? pattern.exec(this)
                                                        : match.call(this, pattern);
  });
  function found(name, find) {
    Object.defineProperty(RegExp, name, { get: function () { return last ? find(last) : ""; },
                                          configurable: true });
  }
  for (var place = 1; place < 10; place++) {
    (function (group) { found("$" + group, function (last) { return last[group] || ""; }); })(place);
  }
  found("lastMatch", function (last) { return last[0]; });
  found("leftContext", function (last) { return last.input.substr(0, last.index); });
  found("rightContext", function (last) {
    return last.input.substr(last.index + last[0].length);
  });

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
  var PlainError = Error;
  hide("Error", function (number, text) {
    if (arguments.length < 2 || typeof number !== "number") return new PlainError(number);
    var error = new PlainError(text);
    error.number = number;
    return error;
  });
  Error.prototype = PlainError.prototype;
  method(Error.prototype, "constructor", Error);
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
