#include "http/content_types.h"

#include <algorithm>
#include <iterator>

#include "support/paths.h"
#include "support/text.h"

namespace quorvane {

namespace {

struct Row {
  std::string_view extension;
  std::string_view type;
};

/// Sorted by extension. The types are those that web servers of the host system have always given
/// these files, spelling included.
constexpr Row kRows[] = {
    {".323", "text/h323"},
    {".acx", "application/internet-property-stream"},
    {".ai", "application/postscript"},
    {".aif", "audio/x-aiff"},
    {".aifc", "audio/aiff"},
    {".aiff", "audio/aiff"},
    {".asf", "video/x-ms-asf"},
    {".asp", "text/html"},
    {".asr", "video/x-ms-asf"},
    {".asx", "video/x-ms-asf"},
    {".au", "audio/basic"},
    {".avi", "video/x-msvideo"},
    {".axs", "application/olescript"},
    {".bas", "text/plain"},
    {".bcpio", "application/x-bcpio"},
    {".bin", "application/octet-stream"},
    {".bmp", "image/bmp"},
    {".c", "text/plain"},
    {".cat", "application/vnd.ms-pki.seccat"},
    {".cdf", "application/x-cdf"},
    {".cer", "application/x-x509-ca-cert"},
    {".class", "application/octet-stream"},
    {".clp", "application/x-msclip"},
    {".cmx", "image/x-cmx"},
    {".cod", "image/cis-cod"},
    {".cpio", "application/x-cpio"},
    {".crd", "application/x-mscardfile"},
    {".crl", "application/pkix-crl"},
    {".crt", "application/x-x509-ca-cert"},
    {".csh", "application/x-csh"},
    {".css", "text/css"},
    {".dcr", "application/x-director"},
    {".der", "application/x-x509-ca-cert"},
    {".dir", "application/x-director"},
    {".dll", "application/x-msdownload"},
    {".dms", "application/octet-stream"},
    {".doc", "application/msword"},
    {".dot", "application/msword"},
    {".dvi", "application/x-dvi"},
    {".dxr", "application/x-director"},
    {".eps", "application/postscript"},
    {".etx", "text/x-setext"},
    {".evy", "application/envoy"},
    {".exe", "application/octet-stream"},
    {".fif", "application/fractals"},
    {".flr", "x-world/x-vrml"},
    {".gif", "image/gif"},
    {".gtar", "application/x-gtar"},
    {".gz", "application/x-gzip"},
    {".h", "text/plain"},
    {".hdf", "application/x-hdf"},
    {".hlp", "application/winhlp"},
    {".hqx", "application/mac-binhex40"},
    {".hta", "application/hta"},
    {".htc", "text/x-component"},
    {".htm", "text/html"},
    {".html", "text/html"},
    {".htt", "text/webviewhtml"},
    {".ico", "image/x-icon"},
    {".ief", "image/ief"},
    {".iii", "application/x-iphone"},
    {".ins", "application/x-internet-signup"},
    {".isp", "application/x-internet-signup"},
    {".jfif", "image/pjpeg"},
    {".jpe", "image/jpeg"},
    {".jpeg", "image/jpeg"},
    {".jpg", "image/jpeg"},
    {".js", "application/x-javascript"},
    {".latex", "application/x-latex"},
    {".lha", "application/octet-stream"},
    {".lsf", "video/x-la-asf"},
    {".lsx", "video/x-la-asf"},
    {".lzh", "application/octet-stream"},
    {".m13", "application/x-msmediaview"},
    {".m14", "application/x-msmediaview"},
    {".m3u", "audio/x-mpegurl"},
    {".man", "application/x-troff-man"},
    {".mdb", "application/x-msaccess"},
    {".me", "application/x-troff-me"},
    {".mht", "message/rfc822"},
    {".mhtml", "message/rfc822"},
    {".mid", "audio/mid"},
    {".mny", "application/x-msmoney"},
    {".mov", "video/quicktime"},
    {".movie", "video/x-sgi-movie"},
    {".mp2", "video/mpeg"},
    {".mp3", "audio/mpeg"},
    {".mpa", "video/mpeg"},
    {".mpe", "video/mpeg"},
    {".mpeg", "video/mpeg"},
    {".mpg", "video/mpeg"},
    {".mpp", "application/vnd.ms-project"},
    {".mpv2", "video/mpeg"},
    {".ms", "application/x-troff-ms"},
    {".mvb", "application/x-msmediaview"},
    {".nws", "message/rfc822"},
    {".oda", "application/oda"},
    {".p10", "application/pkcs10"},
    {".p12", "application/x-pkcs12"},
    {".p7b", "application/x-pkcs7-certificates"},
    {".p7c", "application/pkcs7-mime"},
    {".p7m", "application/pkcs7-mime"},
    {".p7r", "application/x-pkcs7-certreqresp"},
    {".p7s", "application/pkcs7-signature"},
    {".pbm", "image/x-portable-bitmap"},
    {".pdf", "application/pdf"},
    {".pfx", "application/x-pkcs12"},
    {".pgm", "image/x-portable-graymap"},
    {".pko", "application/ynd.ms-pkipko"},
    {".pma", "application/x-perfmon"},
    {".pmc", "application/x-perfmon"},
    {".pml", "application/x-perfmon"},
    {".pmr", "application/x-perfmon"},
    {".pmw", "application/x-perfmon"},
    {".png", "image/png"},
    {".pnm", "image/x-portable-anymap"},
    {".pot", "application/vnd.ms-powerpoint"},
    {".ppm", "image/x-portable-pixmap"},
    {".pps", "application/vnd.ms-powerpoint"},
    {".ppt", "application/vnd.ms-powerpoint"},
    {".prf", "application/pics-rules"},
    {".ps", "application/postscript"},
    {".pub", "application/x-mspublisher"},
    {".qt", "video/quicktime"},
    {".qvs", "text/html"},
    {".ra", "audio/x-pn-realaudio"},
    {".ram", "audio/x-pn-realaudio"},
    {".ras", "image/x-cmu-raster"},
    {".rgb", "image/x-rgb"},
    {".rmi", "audio/mid"},
    {".roff", "application/x-troff"},
    {".rtf", "application/rtf"},
    {".rtx", "text/richtext"},
    {".scd", "application/x-msschedule"},
    {".sct", "text/scriptlet"},
    {".setpay", "application/set-payment-initiation"},
    {".setreg", "application/set-registration-initiation"},
    {".sh", "application/x-sh"},
    {".shar", "application/x-shar"},
    {".sit", "application/x-stuffit"},
    {".snd", "audio/basic"},
    {".spc", "application/x-pkcs7-certificates"},
    {".spl", "application/futuresplash"},
    {".src", "application/x-wais-source"},
    {".sst", "application/vnd.ms-pki.certstore"},
    {".stl", "application/vnd.ms-pki.stl"},
    {".stm", "text/html"},
    {".sv4cpio", "application/x-sv4cpio"},
    {".sv4crc", "application/x-sv4crc"},
    {".t", "application/x-troff"},
    {".tar", "application/x-tar"},
    {".tcl", "application/x-tcl"},
    {".tex", "application/x-tex"},
    {".texi", "application/x-texinfo"},
    {".texinfo", "application/x-texinfo"},
    {".tgz", "application/x-compressed"},
    {".tif", "image/tiff"},
    {".tiff", "image/tiff"},
    {".tr", "application/x-troff"},
    {".trm", "application/x-msterminal"},
    {".tsv", "text/tab-separated-values"},
    {".txt", "text/plain"},
    {".uls", "text/iuls"},
    {".ustar", "application/x-ustar"},
    {".vcf", "text/x-vcard"},
    {".vrml", "x-world/x-vrml"},
    {".wav", "audio/x-wav"},
    {".wcm", "application/vnd.ms-works"},
    {".wdb", "application/vnd.ms-works"},
    {".wks", "application/vnd.ms-works"},
    {".wma", "audio/x-ms-wma"},
    {".wmf", "application/x-msmetafile"},
    {".wpl", "application/vnd.ms-wpl"},
    {".wps", "application/vnd.ms-works"},
    {".wri", "application/x-mswrite"},
    {".wrl", "x-world/x-vrml"},
    {".wrz", "x-world/x-vrml"},
    {".xaf", "x-world/x-vrml"},
    {".xbm", "image/x-xbitmap"},
    {".xla", "application/vnd.ms-excel"},
    {".xlc", "application/vnd.ms-excel"},
    {".xlm", "application/vnd.ms-excel"},
    {".xls", "application/vnd.ms-excel"},
    {".xlt", "application/vnd.ms-excel"},
    {".xlw", "application/vnd.ms-excel"},
    {".xof", "x-world/x-vrml"},
    {".xpm", "image/x-xpixmap"},
    {".xwd", "image/x-xwindowdump"},
    {".z", "application/x-compress"},
    {".zip", "application/zip"},
};

constexpr bool before(const Row& a, const Row& b) {
  return a.extension < b.extension;
}
static_assert(std::is_sorted(std::begin(kRows), std::end(kRows), before));
static_assert(std::size(kRows) == 190);

}  // namespace

std::string_view ContentTypes::typeOf(std::string_view path, std::string_view fallback) {
  const std::string_view extension = paths::extensionOf(path);
  if (extension.empty()) return fallback;
  if (equalsNoCase(extension, memoExtension_)) return memoType_;
  std::string key = lowerCase(extension);
  const Row* row = std::lower_bound(std::begin(kRows), std::end(kRows), Row{key, {}}, before);
  if (row == std::end(kRows) || row->extension != key) return fallback;
  memoExtension_ = std::move(key);
  memoType_ = row->type;
  return memoType_;
}

std::size_t ContentTypes::size() {
  return std::size(kRows);
}

}  // namespace quorvane
