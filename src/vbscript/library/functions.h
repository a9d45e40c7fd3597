#pragma once

#include "vbscript/library/library.h"
#include "vbscript/values/object.h"

/// The intrinsic functions, one file for each group. The table in library.cpp gives their names
/// and argument counts; what they mean is the language's own reference.
namespace quorvane::vbs::intrinsic {

// strings.cpp
Value asc(Runtime&, Args);
Value ascW(Runtime&, Args);
Value chr(Runtime&, Args);
Value chrW(Runtime&, Args);
Value lCase(Runtime&, Args);
Value left(Runtime&, Args);
Value len(Runtime&, Args);
Value lTrim(Runtime&, Args);
Value mid(Runtime&, Args);
Value right(Runtime&, Args);
Value rTrim(Runtime&, Args);
Value space(Runtime&, Args);
Value strReverse(Runtime&, Args);
Value string(Runtime&, Args);
Value trim(Runtime&, Args);
Value uCase(Runtime&, Args);

// byte_strings.cpp
Value ascB(Runtime&, Args);
Value chrB(Runtime&, Args);
Value inStrB(Runtime&, Args);
Value leftB(Runtime&, Args);
Value lenB(Runtime&, Args);
Value midB(Runtime&, Args);
Value rightB(Runtime&, Args);

// text_search.cpp
Value filter(Runtime&, Args);
Value inStr(Runtime&, Args);
Value inStrRev(Runtime&, Args);
Value join(Runtime&, Args);
Value replace(Runtime&, Args);
Value split(Runtime&, Args);
Value strComp(Runtime&, Args);

// math.cpp
Value abs(Runtime&, Args);
Value atn(Runtime&, Args);
Value cos(Runtime&, Args);
Value exp(Runtime&, Args);
Value fix(Runtime&, Args);
Value floor(Runtime&, Args);  ///< Int
Value hex(Runtime&, Args);
Value log(Runtime&, Args);
Value oct(Runtime&, Args);
Value randomize(Runtime&, Args);
Value rnd(Runtime&, Args);
Value round(Runtime&, Args);
Value sgn(Runtime&, Args);
Value sin(Runtime&, Args);
Value sqr(Runtime&, Args);
Value tan(Runtime&, Args);

// dates.cpp
Value date(Runtime&, Args);
Value dateAdd(Runtime&, Args);
Value dateDiff(Runtime&, Args);
Value datePart(Runtime&, Args);
Value dateSerial(Runtime&, Args);
Value dateValue(Runtime&, Args);
Value day(Runtime&, Args);
Value hour(Runtime&, Args);
Value minute(Runtime&, Args);
Value month(Runtime&, Args);
Value monthName(Runtime&, Args);
Value now(Runtime&, Args);
Value second(Runtime&, Args);
Value time(Runtime&, Args);
Value timer(Runtime&, Args);
Value timeSerial(Runtime&, Args);
Value timeValue(Runtime&, Args);
Value weekday(Runtime&, Args);
Value weekdayName(Runtime&, Args);
Value year(Runtime&, Args);

// conversion.cpp
Value cBool(Runtime&, Args);
Value cByte(Runtime&, Args);
Value cCur(Runtime&, Args);
Value cDate(Runtime&, Args);
Value cDbl(Runtime&, Args);
Value cInt(Runtime&, Args);
Value cLng(Runtime&, Args);
Value cSng(Runtime&, Args);
Value cStr(Runtime&, Args);
Value isArray(Runtime&, Args);
Value isDate(Runtime&, Args);
Value isEmpty(Runtime&, Args);
Value isNull(Runtime&, Args);
Value isNumeric(Runtime&, Args);
Value isObject(Runtime&, Args);
Value typeNameOf(Runtime&, Args);
Value varTypeOf(Runtime&, Args);

// arrays.cpp
Value array(Runtime&, Args);
Value lBound(Runtime&, Args);
Value uBound(Runtime&, Args);

// formatting.cpp
Value formatCurrency(Runtime&, Args);
Value formatDateTime(Runtime&, Args);
Value formatNumber(Runtime&, Args);
Value formatPercent(Runtime&, Args);

// escape.cpp
Value escape(Runtime&, Args);
Value unescape(Runtime&, Args);

// system.cpp
Value createObject(Runtime&, Args);
Value getLocale(Runtime&, Args);
Value getObject(Runtime&, Args);
Value refuse(Runtime&, Args);  ///< MsgBox, InputBox, LoadPicture: nobody sits before a server
Value rgb(Runtime&, Args);
Value scriptEngine(Runtime&, Args);
Value scriptEngineBuildVersion(Runtime&, Args);
Value scriptEngineMajorVersion(Runtime&, Args);
Value scriptEngineMinorVersion(Runtime&, Args);
Value setLocale(Runtime&, Args);

}  // namespace quorvane::vbs::intrinsic
