// Made by tools/locale_names of the Unicode Common Locale Data Repository.
// clang-format off
#include "vbscript/values/locale_table.h"

namespace quorvane::vbs {

namespace {

constexpr LocaleNames kNames0 = {
    words<12>("يناير|فبراير|مارس|أبريل|مايو|يونيو|يوليو|أغسطس|سبتمبر|أكتوبر|نوفمبر|ديسمبر"),
    words<12>("يناير|فبراير|مارس|أبريل|مايو|يونيو|يوليو|أغسطس|سبتمبر|أكتوبر|نوفمبر|ديسمبر"),
    words<7>("الأحد|الاثنين|الثلاثاء|الأربعاء|الخميس|الجمعة|السبت"),
    words<7>("الأحد|الاثنين|الثلاثاء|الأربعاء|الخميس|الجمعة|السبت"),
};
constexpr LocaleNames kNames1 = {
    words<12>("януари|февруари|март|април|май|юни|юли|август|септември|октомври|ноември|декември"),
    words<12>("яну|фев|март|апр|май|юни|юли|авг|сеп|окт|ное|дек"),
    words<7>("неделя|понеделник|вторник|сряда|четвъртък|петък|събота"),
    words<7>("нд|пн|вт|ср|чт|пт|сб"),
};
constexpr LocaleNames kNames2 = {
    words<12>("gener|febrer|març|abril|maig|juny|juliol|agost|setembre|octubre|novembre|desembre"),
    words<12>("gen.|febr.|març|abr.|maig|juny|jul.|ag.|set.|oct.|nov.|des."),
    words<7>("diumenge|dilluns|dimarts|dimecres|dijous|divendres|dissabte"),
    words<7>("dg.|dl.|dt.|dc.|dj.|dv.|ds."),
    words<12>("de gener|de febrer|de març|d’abril|de maig|de juny|de juliol|d’agost|de setembre|d’octubre|de novembre|de desembre"),
};
constexpr LocaleNames kNames3 = {
    words<12>("1月|2月|3月|4月|5月|6月|7月|8月|9月|10月|11月|12月"),
    words<12>("1月|2月|3月|4月|5月|6月|7月|8月|9月|10月|11月|12月"),
    words<7>("星期日|星期一|星期二|星期三|星期四|星期五|星期六"),
    words<7>("週日|週一|週二|週三|週四|週五|週六"),
};
constexpr LocaleNames kNames4 = {
    words<12>("leden|únor|březen|duben|květen|červen|červenec|srpen|září|říjen|listopad|prosinec"),
    words<12>("led|úno|bře|dub|kvě|čvn|čvc|srp|zář|říj|lis|pro"),
    words<7>("neděle|pondělí|úterý|středa|čtvrtek|pátek|sobota"),
    words<7>("ne|po|út|st|čt|pá|so"),
    words<12>("ledna|února|března|dubna|května|června|července|srpna|září|října|listopadu|prosince"),
};
constexpr LocaleNames kNames5 = {
    words<12>("Ιανουάριος|Φεβρουάριος|Μάρτιος|Απρίλιος|Μάιος|Ιούνιος|Ιούλιος|Αύγουστος|Σεπτέμβριος|Οκτώβριος|Νοέμβριος|Δεκέμβριος"),
    words<12>("Ιαν|Φεβ|Μάρ|Απρ|Μάι|Ιούν|Ιούλ|Αύγ|Σεπ|Οκτ|Νοέ|Δεκ"),
    words<7>("Κυριακή|Δευτέρα|Τρίτη|Τετάρτη|Πέμπτη|Παρασκευή|Σάββατο"),
    words<7>("Κυρ|Δευ|Τρί|Τετ|Πέμ|Παρ|Σάβ"),
    words<12>("Ιανουαρίου|Φεβρουαρίου|Μαρτίου|Απριλίου|Μαΐου|Ιουνίου|Ιουλίου|Αυγούστου|Σεπτεμβρίου|Οκτωβρίου|Νοεμβρίου|Δεκεμβρίου"),
};
constexpr LocaleNames kNames6 = {
    words<12>("ינואר|פברואר|מרץ|אפריל|מאי|יוני|יולי|אוגוסט|ספטמבר|אוקטובר|נובמבר|דצמבר"),
    words<12>("ינו׳|פבר׳|מרץ|אפר׳|מאי|יוני|יולי|אוג׳|ספט׳|אוק׳|נוב׳|דצמ׳"),
    words<7>("יום ראשון|יום שני|יום שלישי|יום רביעי|יום חמישי|יום שישי|יום שבת"),
    words<7>("יום א׳|יום ב׳|יום ג׳|יום ד׳|יום ה׳|יום ו׳|שבת"),
};
constexpr LocaleNames kNames7 = {
    words<12>("január|február|március|április|május|június|július|augusztus|szeptember|október|november|december"),
    words<12>("jan.|febr.|márc.|ápr.|máj.|jún.|júl.|aug.|szept.|okt.|nov.|dec."),
    words<7>("vasárnap|hétfő|kedd|szerda|csütörtök|péntek|szombat"),
    words<7>("V|H|K|Sze|Cs|P|Szo"),
};
constexpr LocaleNames kNames8 = {
    words<12>("janúar|febrúar|mars|apríl|maí|júní|júlí|ágúst|september|október|nóvember|desember"),
    words<12>("jan.|feb.|mar.|apr.|maí|jún.|júl.|ágú.|sep.|okt.|nóv.|des."),
    words<7>("sunnudagur|mánudagur|þriðjudagur|miðvikudagur|fimmtudagur|föstudagur|laugardagur"),
    words<7>("sun.|mán.|þri.|mið.|fim.|fös.|lau."),
};
constexpr LocaleNames kNames9 = {
    words<12>("1月|2月|3月|4月|5月|6月|7月|8月|9月|10月|11月|12月"),
    words<12>("1月|2月|3月|4月|5月|6月|7月|8月|9月|10月|11月|12月"),
    words<7>("日曜日|月曜日|火曜日|水曜日|木曜日|金曜日|土曜日"),
    words<7>("日|月|火|水|木|金|土"),
};
constexpr LocaleNames kNames10 = {
    words<12>("1월|2월|3월|4월|5월|6월|7월|8월|9월|10월|11월|12월"),
    words<12>("1월|2월|3월|4월|5월|6월|7월|8월|9월|10월|11월|12월"),
    words<7>("일요일|월요일|화요일|수요일|목요일|금요일|토요일"),
    words<7>("일|월|화|수|목|금|토"),
};
constexpr LocaleNames kNames11 = {
    words<12>("styczeń|luty|marzec|kwiecień|maj|czerwiec|lipiec|sierpień|wrzesień|październik|listopad|grudzień"),
    words<12>("sty|lut|mar|kwi|maj|cze|lip|sie|wrz|paź|lis|gru"),
    words<7>("niedziela|poniedziałek|wtorek|środa|czwartek|piątek|sobota"),
    words<7>("niedz.|pon.|wt.|śr.|czw.|pt.|sob."),
    words<12>("stycznia|lutego|marca|kwietnia|maja|czerwca|lipca|sierpnia|września|października|listopada|grudnia"),
};
constexpr LocaleNames kNames12 = {
    words<12>("schaner|favrer|mars|avrigl|matg|zercladur|fanadur|avust|settember|october|november|december"),
    words<12>("schan.|favr.|mars|avr.|matg|zercl.|fan.|avust|sett.|oct.|nov.|dec."),
    words<7>("dumengia|glindesdi|mardi|mesemna|gievgia|venderdi|sonda"),
    words<7>("du|gli|ma|me|gie|ve|so"),
    words<12>("da schaner|da favrer|da mars|d’avrigl|da matg|da zercladur|da fanadur|d’avust|da settember|d’october|da november|da december"),
};
constexpr LocaleNames kNames13 = {
    words<12>("ianuarie|februarie|martie|aprilie|mai|iunie|iulie|august|septembrie|octombrie|noiembrie|decembrie"),
    words<12>("ian.|feb.|mar.|apr.|mai|iun.|iul.|aug.|sept.|oct.|nov.|dec."),
    words<7>("duminică|luni|marți|miercuri|joi|vineri|sâmbătă"),
    words<7>("dum.|lun.|mar.|mie.|joi|vin.|sâm."),
};
constexpr LocaleNames kNames14 = {
    words<12>("январь|февраль|март|апрель|май|июнь|июль|август|сентябрь|октябрь|ноябрь|декабрь"),
    words<12>("янв.|февр.|март|апр.|май|июнь|июль|авг.|сент.|окт.|нояб.|дек."),
    words<7>("воскресенье|понедельник|вторник|среда|четверг|пятница|суббота"),
    words<7>("вс|пн|вт|ср|чт|пт|сб"),
    words<12>("января|февраля|марта|апреля|мая|июня|июля|августа|сентября|октября|ноября|декабря"),
};
constexpr LocaleNames kNames15 = {
    words<12>("siječanj|veljača|ožujak|travanj|svibanj|lipanj|srpanj|kolovoz|rujan|listopad|studeni|prosinac"),
    words<12>("sij|velj|ožu|tra|svi|lip|srp|kol|ruj|lis|stu|pro"),
    words<7>("nedjelja|ponedjeljak|utorak|srijeda|četvrtak|petak|subota"),
    words<7>("ned|pon|uto|sri|čet|pet|sub"),
    words<12>("siječnja|veljače|ožujka|travnja|svibnja|lipnja|srpnja|kolovoza|rujna|listopada|studenoga|prosinca"),
};
constexpr LocaleNames kNames16 = {
    words<12>("január|február|marec|apríl|máj|jún|júl|august|september|október|november|december"),
    words<12>("jan|feb|mar|apr|máj|jún|júl|aug|sep|okt|nov|dec"),
    words<7>("nedeľa|pondelok|utorok|streda|štvrtok|piatok|sobota"),
    words<7>("ne|po|ut|st|št|pi|so"),
    words<12>("januára|februára|marca|apríla|mája|júna|júla|augusta|septembra|októbra|novembra|decembra"),
};
constexpr LocaleNames kNames17 = {
    words<12>("janar|shkurt|mars|prill|maj|qershor|korrik|gusht|shtator|tetor|nëntor|dhjetor"),
    words<12>("jan|shk|mar|pri|maj|qer|korr|gush|sht|tet|nën|dhj"),
    words<7>("e diel|e hënë|e martë|e mërkurë|e enjte|e premte|e shtunë"),
    words<7>("die|hën|mar|mër|enj|pre|sht"),
};
constexpr LocaleNames kNames18 = {
    words<12>("มกราคม|กุมภาพันธ์|มีนาคม|เมษายน|พฤษภาคม|มิถุนายน|กรกฎาคม|สิงหาคม|กันยายน|ตุลาคม|พฤศจิกายน|ธันวาคม"),
    words<12>("ม.ค.|ก.พ.|มี.ค.|เม.ย.|พ.ค.|มิ.ย.|ก.ค.|ส.ค.|ก.ย.|ต.ค.|พ.ย.|ธ.ค."),
    words<7>("วันอาทิตย์|วันจันทร์|วันอังคาร|วันพุธ|วันพฤหัสบดี|วันศุกร์|วันเสาร์"),
    words<7>("อา.|จ.|อ.|พ.|พฤ.|ศ.|ส."),
};
constexpr LocaleNames kNames19 = {
    words<12>("Ocak|Şubat|Mart|Nisan|Mayıs|Haziran|Temmuz|Ağustos|Eylül|Ekim|Kasım|Aralık"),
    words<12>("Oca|Şub|Mar|Nis|May|Haz|Tem|Ağu|Eyl|Eki|Kas|Ara"),
    words<7>("Pazar|Pazartesi|Salı|Çarşamba|Perşembe|Cuma|Cumartesi"),
    words<7>("Paz|Pzt|Sal|Çar|Per|Cum|Cmt"),
};
constexpr LocaleNames kNames20 = {
    words<12>("جنوری|فروری|مارچ|اپریل|مئی|جون|جولائی|اگست|ستمبر|اکتوبر|نومبر|دسمبر"),
    words<12>("جنوری|فروری|مارچ|اپریل|مئی|جون|جولائی|اگست|ستمبر|اکتوبر|نومبر|دسمبر"),
    words<7>("اتوار|پیر|منگل|بدھ|جمعرات|جمعہ|ہفتہ"),
    words<7>("اتوار|پیر|منگل|بدھ|جمعرات|جمعہ|ہفتہ"),
};
constexpr LocaleNames kNames21 = {
    words<12>("Januari|Februari|Maret|April|Mei|Juni|Juli|Agustus|September|Oktober|November|Desember"),
    words<12>("Jan|Feb|Mar|Apr|Mei|Jun|Jul|Agu|Sep|Okt|Nov|Des"),
    words<7>("Minggu|Senin|Selasa|Rabu|Kamis|Jumat|Sabtu"),
    words<7>("Min|Sen|Sel|Rab|Kam|Jum|Sab"),
};
constexpr LocaleNames kNames22 = {
    words<12>("січень|лютий|березень|квітень|травень|червень|липень|серпень|вересень|жовтень|листопад|грудень"),
    words<12>("січ|лют|бер|кві|тра|чер|лип|сер|вер|жов|лис|гру"),
    words<7>("неділя|понеділок|вівторок|середа|четвер|пʼятниця|субота"),
    words<7>("нд|пн|вт|ср|чт|пт|сб"),
    words<12>("січня|лютого|березня|квітня|травня|червня|липня|серпня|вересня|жовтня|листопада|грудня"),
};
constexpr LocaleNames kNames23 = {
    words<12>("студзень|люты|сакавік|красавік|май|чэрвень|ліпень|жнівень|верасень|кастрычнік|лістапад|снежань"),
    words<12>("сту|лют|сак|кра|май|чэр|ліп|жні|вер|кас|ліс|сне"),
    words<7>("нядзеля|панядзелак|аўторак|серада|чацвер|пятніца|субота"),
    words<7>("нд|пн|аў|ср|чц|пт|сб"),
    words<12>("студзеня|лютага|сакавіка|красавіка|мая|чэрвеня|ліпеня|жніўня|верасня|кастрычніка|лістапада|снежня"),
};
constexpr LocaleNames kNames24 = {
    words<12>("januar|februar|marec|april|maj|junij|julij|avgust|september|oktober|november|december"),
    words<12>("jan.|feb.|mar.|apr.|maj|jun.|jul.|avg.|sep.|okt.|nov.|dec."),
    words<7>("nedelja|ponedeljek|torek|sreda|četrtek|petek|sobota"),
    words<7>("ned.|pon.|tor.|sre.|čet.|pet.|sob."),
};
constexpr LocaleNames kNames25 = {
    words<12>("jaanuar|veebruar|märts|aprill|mai|juuni|juuli|august|september|oktoober|november|detsember"),
    words<12>("jaan|veebr|märts|apr|mai|juuni|juuli|aug|sept|okt|nov|dets"),
    words<7>("Pühapäev|Esmaspäev|Teisipäev|Kolmapäev|Neljapäev|Reede|Laupäev"),
    words<7>("P|E|T|K|N|R|L"),
};
constexpr LocaleNames kNames26 = {
    words<12>("janvāris|februāris|marts|aprīlis|maijs|jūnijs|jūlijs|augusts|septembris|oktobris|novembris|decembris"),
    words<12>("janv.|febr.|marts|apr.|maijs|jūn.|jūl.|aug.|sept.|okt.|nov.|dec."),
    words<7>("Svētdiena|Pirmdiena|Otrdiena|Trešdiena|Ceturtdiena|Piektdiena|Sestdiena"),
    words<7>("Svētd.|Pirmd.|Otrd.|Trešd.|Ceturtd.|Piektd.|Sestd."),
};
constexpr LocaleNames kNames27 = {
    words<12>("sausis|vasaris|kovas|balandis|gegužė|birželis|liepa|rugpjūtis|rugsėjis|spalis|lapkritis|gruodis"),
    words<12>("saus.|vas.|kov.|bal.|geg.|birž.|liep.|rugp.|rugs.|spal.|lapkr.|gruod."),
    words<7>("sekmadienis|pirmadienis|antradienis|trečiadienis|ketvirtadienis|penktadienis|šeštadienis"),
    words<7>("sk|pr|an|tr|kt|pn|št"),
    words<12>("sausio|vasario|kovo|balandžio|gegužės|birželio|liepos|rugpjūčio|rugsėjo|spalio|lapkričio|gruodžio"),
};
constexpr LocaleNames kNames28 = {
    words<12>("Январ|Феврал|Март|Апрел|Май|Июн|Июл|Август|Сентябр|Октябр|Ноябр|Декабр"),
    words<12>("Янв|Фев|Мар|Апр|Май|Июн|Июл|Авг|Сен|Окт|Ноя|Дек"),
    words<7>("Якшанбе|Душанбе|Сешанбе|Чоршанбе|Панҷшанбе|Ҷумъа|Шанбе"),
    words<7>("Яшб|Дшб|Сшб|Чшб|Пшб|Ҷмъ|Шнб"),
};
constexpr LocaleNames kNames29 = {
    words<12>("ژانویه|فوریه|مارس|آوریل|مه|ژوئن|ژوئیه|اوت|سپتامبر|اکتبر|نوامبر|دسامبر"),
    words<12>("ژانویه|فوریه|مارس|آوریل|مه|ژوئن|ژوئیه|اوت|سپتامبر|اکتبر|نوامبر|دسامبر"),
    words<7>("یکشنبه|دوشنبه|سه\342\200\214شنبه|چهارشنبه|پنجشنبه|جمعه|شنبه"),
    words<7>("یکشنبه|دوشنبه|سه\342\200\214شنبه|چهارشنبه|پنجشنبه|جمعه|شنبه"),
    words<12>("ژانویهٔ|فوریهٔ|مارس|آوریل|مهٔ|ژوئن|ژوئیهٔ|اوت|سپتامبر|اکتبر|نوامبر|دسامبر"),
};
constexpr LocaleNames kNames30 = {
    words<12>("Tháng 1|Tháng 2|Tháng 3|Tháng 4|Tháng 5|Tháng 6|Tháng 7|Tháng 8|Tháng 9|Tháng 10|Tháng 11|Tháng 12"),
    words<12>("Thg 1|Thg 2|Thg 3|Thg 4|Thg 5|Thg 6|Thg 7|Thg 8|Thg 9|Thg 10|Thg 11|Thg 12"),
    words<7>("Chủ Nhật|Thứ Hai|Thứ Ba|Thứ Tư|Thứ Năm|Thứ Sáu|Thứ Bảy"),
    words<7>("CN|Th 2|Th 3|Th 4|Th 5|Th 6|Th 7"),
    words<12>("tháng 1|tháng 2|tháng 3|tháng 4|tháng 5|tháng 6|tháng 7|tháng 8|tháng 9|tháng 10|tháng 11|tháng 12"),
};
constexpr LocaleNames kNames31 = {
    words<12>("հունվար|փետրվար|մարտ|ապրիլ|մայիս|հունիս|հուլիս|օգոստոս|սեպտեմբեր|հոկտեմբեր|նոյեմբեր|դեկտեմբեր"),
    words<12>("հնվ|փտվ|մրտ|ապր|մյս|հնս|հլս|օգս|սեպ|հոկ|նոյ|դեկ"),
    words<7>("կիրակի|երկուշաբթի|երեքշաբթի|չորեքշաբթի|հինգշաբթի|ուրբաթ|շաբաթ"),
    words<7>("կիր|երկ|երք|չրք|հնգ|ուր|շբթ"),
    words<12>("հունվարի|փետրվարի|մարտի|ապրիլի|մայիսի|հունիսի|հուլիսի|օգոստոսի|սեպտեմբերի|հոկտեմբերի|նոյեմբերի|դեկտեմբերի"),
};
constexpr LocaleNames kNames32 = {
    words<12>("yanvar|fevral|mart|aprel|may|iyun|iyul|avqust|sentyabr|oktyabr|noyabr|dekabr"),
    words<12>("yan|fev|mar|apr|may|iyn|iyl|avq|sen|okt|noy|dek"),
    words<7>("bazar|bazar ertəsi|çərşənbə axşamı|çərşənbə|cümə axşamı|cümə|şənbə"),
    words<7>("B.|B.E.|Ç.A.|Ç.|C.A.|C.|Ş."),
};
constexpr LocaleNames kNames33 = {
    words<12>("urtarrila|otsaila|martxoa|apirila|maiatza|ekaina|uztaila|abuztua|iraila|urria|azaroa|abendua"),
    words<12>("urt.|ots.|mar.|api.|mai.|eka.|uzt.|abu.|ira.|urr.|aza.|abe."),
    words<7>("igandea|astelehena|asteartea|asteazkena|osteguna|ostirala|larunbata"),
    words<7>("ig.|al.|ar.|az.|og.|or.|lr."),
    words<12>("urtarrilak|otsailak|martxoak|apirilak|maiatzak|ekainak|uztailak|abuztuak|irailak|urriak|azaroak|abenduak"),
};
constexpr LocaleNames kNames34 = {
    words<12>("januar|februar|měrc|apryl|meja|junij|julij|awgust|september|oktober|nowember|december"),
    words<12>("jan|feb|měr|apr|mej|jun|jul|awg|sep|okt|now|dec"),
    words<7>("njedźela|póndźela|wutora|srjeda|štwórtk|pjatk|sobota"),
    words<7>("nje|pón|wut|srj|štw|pja|sob"),
    words<12>("januara|februara|měrca|apryla|meje|junija|julija|awgusta|septembra|oktobra|nowembra|decembra"),
};
constexpr LocaleNames kNames35 = {
    words<12>("јануари|февруари|март|април|мај|јуни|јули|август|септември|октомври|ноември|декември"),
    words<12>("јан.|фев.|мар.|апр.|мај|јун.|јул.|авг.|септ.|окт.|ноем.|дек."),
    words<7>("недела|понеделник|вторник|среда|четврток|петок|сабота"),
    words<7>("нед.|пон.|вто.|сре.|чет.|пет.|саб."),
};
constexpr LocaleNames kNames36 = {
    words<12>("Janyuwari|Februwari|Matshi|Epreli|Meyi|Juni|Julayi|Agasti|Septemba|Okthoba|Novemba|Disemba"),
    words<12>("Jan|Feb|Mat|Epr|Mey|Jun|Jul|Aga|Sep|Okt|Nov|Dis"),
    words<7>("Cawe|Mvulo|Lwesibini|Lwesithathu|Lwesine|Lwesihlanu|Mgqibelo"),
    words<7>("Caw|Mvu|Bin|Tha|Sin|Hla|Mgq"),
};
constexpr LocaleNames kNames37 = {
    words<12>("Januwari|Februwari|Mashi|Ephreli|Meyi|Juni|Julayi|Agasti|Septhemba|Okthoba|Novemba|Disemba"),
    words<12>("Jan|Feb|Mas|Eph|Mey|Jun|Jul|Aga|Sep|Okt|Nov|Dis"),
    words<7>("ISonto|UMsombuluko|ULwesibili|ULwesithathu|ULwesine|ULwesihlanu|UMgqibelo"),
    words<7>("Son|Mso|Bil|Tha|Sin|Hla|Mgq"),
};
constexpr LocaleNames kNames38 = {
    words<12>("Januarie|Februarie|Maart|April|Mei|Junie|Julie|Augustus|September|Oktober|November|Desember"),
    words<12>("Jan.|Feb.|Mrt.|Apr.|Mei|Jun.|Jul.|Aug.|Sep.|Okt.|Nov.|Des."),
    words<7>("Sondag|Maandag|Dinsdag|Woensdag|Donderdag|Vrydag|Saterdag"),
    words<7>("So.|Ma.|Di.|Wo.|Do.|Vr.|Sa."),
};
constexpr LocaleNames kNames39 = {
    words<12>("იანვარი|თებერვალი|მარტი|აპრილი|მაისი|ივნისი|ივლისი|აგვისტო|სექტემბერი|ოქტომბერი|ნოემბერი|დეკემბერი"),
    words<12>("იან|თებ|მარ|აპრ|მაი|ივნ|ივლ|აგვ|სექ|ოქტ|ნოე|დეკ"),
    words<7>("კვირა|ორშაბათი|სამშაბათი|ოთხშაბათი|ხუთშაბათი|პარასკევი|შაბათი"),
    words<7>("კვი|ორშ|სამ|ოთხ|ხუთ|პარ|შაბ"),
};
constexpr LocaleNames kNames40 = {
    words<12>("januar|februar|mars|apríl|mai|juni|juli|august|september|oktober|november|desember"),
    words<12>("jan|feb|mar|apr|mai|jun|jul|aug|sep|okt|nov|des"),
    words<7>("sunnudagur|mánadagur|týsdagur|mikudagur|hósdagur|fríggjadagur|leygardagur"),
    words<7>("sun|mán|týs|mik|hós|frí|ley"),
};
constexpr LocaleNames kNames41 = {
    words<12>("जनवरी|फ़रवरी|मार्च|अप्रैल|मई|जून|जुलाई|अगस्त|सितंबर|अक्तूबर|नवंबर|दिसंबर"),
    words<12>("जन॰|फ़र॰|मार्च|अप्रैल|मई|जून|जुल॰|अग॰|सित॰|अक्तू॰|नव॰|दिस॰"),
    words<7>("रविवार|सोमवार|मंगलवार|बुधवार|गुरुवार|शुक्रवार|शनिवार"),
    words<7>("रवि|सोम|मंगल|बुध|गुरु|शुक्र|शनि"),
};
constexpr LocaleNames kNames42 = {
    words<12>("Jannar|Frar|Marzu|April|Mejju|Ġunju|Lulju|Awwissu|Settembru|Ottubru|Novembru|Diċembru"),
    words<12>("Jan|Fra|Mar|Apr|Mej|Ġun|Lul|Aww|Set|Ott|Nov|Diċ"),
    words<7>("Il-Ħadd|It-Tnejn|It-Tlieta|L-Erbgħa|Il-Ħamis|Il-Ġimgħa|Is-Sibt"),
    words<7>("Ħad|Tne|Tli|Erb|Ħam|Ġim|Sib"),
};
constexpr LocaleNames kNames43 = {
    words<12>("ođđajagemánnu|guovvamánnu|njukčamánnu|cuoŋománnu|miessemánnu|geassemánnu|suoidnemánnu|borgemánnu|čakčamánnu|golggotmánnu|skábmamánnu|juovlamánnu"),
    words<12>("ođđj|guov|njuk|cuo|mies|geas|suoi|borg|čakč|golg|skáb|juov"),
    words<7>("sotnabeaivi|vuossárga|maŋŋebárga|gaskavahkku|duorasdat|bearjadat|lávvardat"),
    words<7>("sotn|vuos|maŋ|gask|duor|bear|láv"),
};
constexpr LocaleNames kNames44 = {
    words<12>("Januari|Februari|Mac|April|Mei|Jun|Julai|Ogos|September|Oktober|November|Disember"),
    words<12>("Jan|Feb|Mac|Apr|Mei|Jun|Jul|Ogo|Sep|Okt|Nov|Dis"),
    words<7>("Ahad|Isnin|Selasa|Rabu|Khamis|Jumaat|Sabtu"),
    words<7>("Ahd|Isn|Sel|Rab|Kha|Jum|Sab"),
};
constexpr LocaleNames kNames45 = {
    words<12>("Қаңтар|Ақпан|Наурыз|Сәуір|Мамыр|Маусым|Шілде|Тамыз|Қыркүйек|Қазан|Қараша|Желтоқсан"),
    words<12>("қаң.|ақп.|нау.|сәу.|мам.|мау.|шіл.|там.|қыр.|қаз.|қар.|жел."),
    words<7>("жексенбі|дүйсенбі|сейсенбі|сәрсенбі|бейсенбі|жұма|сенбі"),
    words<7>("жс|дс|сс|ср|бс|жм|сб"),
    words<12>("қаңтар|ақпан|наурыз|сәуір|мамыр|маусым|шілде|тамыз|қыркүйек|қазан|қараша|желтоқсан"),
};
constexpr LocaleNames kNames46 = {
    words<12>("Январь|Февраль|Март|Апрель|Май|Июнь|Июль|Август|Сентябрь|Октябрь|Ноябрь|Декабрь"),
    words<12>("Янв|Фев|Мар|Апр|Май|Июн|Июл|Авг|Сен|Окт|Ноя|Дек"),
    words<7>("жекшемби|дүйшөмбү|шейшемби|шаршемби|бейшемби|жума|ишемби"),
    words<7>("жек.|дүй.|шейш.|шарш.|бейш.|жума|ишм."),
    words<12>("январь|февраль|март|апрель|май|июнь|июль|август|сентябрь|октябрь|ноябрь|декабрь"),
};
constexpr LocaleNames kNames47 = {
    words<12>("Januari|Februari|Machi|Aprili|Mei|Juni|Julai|Agosti|Septemba|Oktoba|Novemba|Desemba"),
    words<12>("Jan|Feb|Mac|Apr|Mei|Jun|Jul|Ago|Sep|Okt|Nov|Des"),
    words<7>("Jumapili|Jumatatu|Jumanne|Jumatano|Alhamisi|Ijumaa|Jumamosi"),
    words<7>("Jumapili|Jumatatu|Jumanne|Jumatano|Alhamisi|Ijumaa|Jumamosi"),
};
constexpr LocaleNames kNames48 = {
    words<12>("Ýanwar|Fewral|Mart|Aprel|Maý|Iýun|Iýul|Awgust|Sentýabr|Oktýabr|Noýabr|Dekabr"),
    words<12>("Ýan|Few|Mar|Apr|Maý|Iýun|Iýul|Awg|Sen|Okt|Noý|Dek"),
    words<7>("Ýekşenbe|Duşenbe|Sişenbe|Çarşenbe|Penşenbe|Anna|Şenbe"),
    words<7>("Ýek|Duş|Siş|Çar|Pen|Ann|Şen"),
    words<12>("ýanwar|fewral|mart|aprel|maý|iýun|iýul|awgust|sentýabr|oktýabr|noýabr|dekabr"),
};
constexpr LocaleNames kNames49 = {
    words<12>("Yanvar|Fevral|Mart|Aprel|May|Iyun|Iyul|Avgust|Sentabr|Oktabr|Noyabr|Dekabr"),
    words<12>("Yan|Fev|Mar|Apr|May|Iyn|Iyl|Avg|Sen|Okt|Noy|Dek"),
    words<7>("yakshanba|dushanba|seshanba|chorshanba|payshanba|juma|shanba"),
    words<7>("Yak|Dush|Sesh|Chor|Pay|Jum|Shan"),
    words<12>("yanvar|fevral|mart|aprel|may|iyun|iyul|avgust|sentabr|oktabr|noyabr|dekabr"),
};
constexpr LocaleNames kNames50 = {
    words<12>("гыйнвар|февраль|март|апрель|май|июнь|июль|август|сентябрь|октябрь|ноябрь|декабрь"),
    words<12>("гыйн.|фев.|мар.|апр.|май|июнь|июль|авг.|сент.|окт.|нояб.|дек."),
    words<7>("якшәмбе|дүшәмбе|сишәмбе|чәршәмбе|пәнҗешәмбе|җомга|шимбә"),
    words<7>("якш.|дүш.|сиш.|чәр.|пәнҗ.|җом.|шим."),
};
constexpr LocaleNames kNames51 = {
    words<12>("জানুয়ারী|ফেব্রুয়ারী|মার্চ|এপ্রিল|মে|জুন|জুলাই|আগস্ট|সেপ্টেম্বর|অক্টোবর|নভেম্বর|ডিসেম্বর"),
    words<12>("জানুয়ারী|ফেব্রুয়ারী|মার্চ|এপ্রিল|মে|জুন|জুলাই|আগস্ট|সেপ্টেম্বর|অক্টোবর|নভেম্বর|ডিসেম্বর"),
    words<7>("রবিবার|সোমবার|মঙ্গলবার|বুধবার|বৃহস্পতিবার|শুক্রবার|শনিবার"),
    words<7>("রবি|সোম|মঙ্গল|বুধ|বৃহস্পতি|শুক্র|শনি"),
};
constexpr LocaleNames kNames52 = {
    words<12>("ਜਨਵਰੀ|ਫ਼ਰਵਰੀ|ਮਾਰਚ|ਅਪ੍ਰੈਲ|ਮਈ|ਜੂਨ|ਜੁਲਾਈ|ਅਗਸਤ|ਸਤੰਬਰ|ਅਕਤੂਬਰ|ਨਵੰਬਰ|ਦਸੰਬਰ"),
    words<12>("ਜਨ|ਫ਼ਰ|ਮਾਰਚ|ਅਪ੍ਰੈ|ਮਈ|ਜੂਨ|ਜੁਲਾ|ਅਗ|ਸਤੰ|ਅਕਤੂ|ਨਵੰ|ਦਸੰ"),
    words<7>("ਐਤਵਾਰ|ਸੋਮਵਾਰ|ਮੰਗਲਵਾਰ|ਬੁੱਧਵਾਰ|ਵੀਰਵਾਰ|ਸ਼ੁੱਕਰਵਾਰ|ਸ਼ਨਿੱਚਰਵਾਰ"),
    words<7>("ਐਤ|ਸੋਮ|ਮੰਗਲ|ਬੁੱਧ|ਵੀਰ|ਸ਼ੁੱਕਰ|ਸ਼ਨਿੱਚਰ"),
};
constexpr LocaleNames kNames53 = {
    words<12>("જાન્યુઆરી|ફેબ્રુઆરી|માર્ચ|એપ્રિલ|મે|જૂન|જુલાઈ|ઑગસ્ટ|સપ્ટેમ્બર|ઑક્ટોબર|નવેમ્બર|ડિસેમ્બર"),
    words<12>("જાન્યુ|ફેબ્રુ|માર્ચ|એપ્રિલ|મે|જૂન|જુલાઈ|ઑગસ્ટ|સપ્ટે|ઑક્ટો|નવે|ડિસે"),
    words<7>("રવિવાર|સોમવાર|મંગળવાર|બુધવાર|ગુરુવાર|શુક્રવાર|શનિવાર"),
    words<7>("રવિ|સોમ|મંગળ|બુધ|ગુરુ|શુક્ર|શનિ"),
};
constexpr LocaleNames kNames54 = {
    words<12>("ଜାନୁଆରୀ|ଫେବୃଆରୀ|ମାର୍ଚ୍ଚ|ଅପ୍ରେଲ|ମଇ|ଜୁନ|ଜୁଲାଇ|ଅଗଷ୍ଟ|ସେପ୍ଟେମ୍ବର|ଅକ୍ଟୋବର|ନଭେମ୍ବର|ଡିସେମ୍ବର"),
    words<12>("ଜାନୁଆରୀ|ଫେବୃଆରୀ|ମାର୍ଚ୍ଚ|ଅପ୍ରେଲ|ମଇ|ଜୁନ|ଜୁଲାଇ|ଅଗଷ୍ଟ|ସେପ୍ଟେମ୍ବର|ଅକ୍ଟୋବର|ନଭେମ୍ବର|ଡିସେମ୍ବର"),
    words<7>("ରବିବାର|ସୋମବାର|ମଙ୍ଗଳବାର|ବୁଧବାର|ଗୁରୁବାର|ଶୁକ୍ରବାର|ଶନିବାର"),
    words<7>("ରବି|ସୋମ|ମଙ୍ଗଳ|ବୁଧ|ଗୁରୁ|ଶୁକ୍ର|ଶନି"),
};
constexpr LocaleNames kNames55 = {
    words<12>("ஜனவரி|பிப்ரவரி|மார்ச்|ஏப்ரல்|மே|ஜூன்|ஜூலை|ஆகஸ்ட்|செப்டம்பர்|அக்டோபர்|நவம்பர்|டிசம்பர்"),
    words<12>("ஜன.|பிப்.|மார்.|ஏப்.|மே|ஜூன்|ஜூலை|ஆக.|செப்.|அக்.|நவ.|டிச."),
    words<7>("ஞாயிறு|திங்கள்|செவ்வாய்|புதன்|வியாழன்|வெள்ளி|சனி"),
    words<7>("ஞாயி.|திங்.|செவ்.|புத.|வியா.|வெள்.|சனி"),
};
constexpr LocaleNames kNames56 = {
    words<12>("జనవరి|ఫిబ్రవరి|మార్చి|ఏప్రిల్|మే|జూన్|జులై|ఆగస్టు|సెప్టెంబర్|అక్టోబర్|నవంబర్|డిసెంబర్"),
    words<12>("జన|ఫిబ్ర|మార్చి|ఏప్రి|మే|జూన్|జులై|ఆగ|సెప్టెం|అక్టో|నవం|డిసెం"),
    words<7>("ఆదివారం|సోమవారం|మంగళవారం|బుధవారం|గురువారం|శుక్రవారం|శనివారం"),
    words<7>("ఆది|సోమ|మంగళ|బుధ|గురు|శుక్ర|శని"),
};
constexpr LocaleNames kNames57 = {
    words<12>("ಜನವರಿ|ಫೆಬ್ರವರಿ|ಮಾರ್ಚ್|ಏಪ್ರಿಲ್|ಮೇ|ಜೂನ್|ಜುಲೈ|ಆಗಸ್ಟ್|ಸೆಪ್ಟೆಂಬರ್|ಅಕ್ಟೋಬರ್|ನವೆಂಬರ್|ಡಿಸೆಂಬರ್"),
    words<12>("ಜನ|ಫೆಬ್ರ|ಮಾರ್ಚ್|ಏಪ್ರಿ|ಮೇ|ಜೂನ್|ಜುಲೈ|ಆಗ|ಸೆಪ್ಟೆಂ|ಅಕ್ಟೋ|ನವೆಂ|ಡಿಸೆಂ"),
    words<7>("ಭಾನುವಾರ|ಸೋಮವಾರ|ಮಂಗಳವಾರ|ಬುಧವಾರ|ಗುರುವಾರ|ಶುಕ್ರವಾರ|ಶನಿವಾರ"),
    words<7>("ಭಾನು|ಸೋಮ|ಮಂಗಳ|ಬುಧ|ಗುರು|ಶುಕ್ರ|ಶನಿ"),
};
constexpr LocaleNames kNames58 = {
    words<12>("ജനുവരി|ഫെബ്രുവരി|മാർച്ച്|ഏപ്രിൽ|മേയ്|ജൂൺ|ജൂലൈ|ഓഗസ്റ്റ്|സെപ്റ്റംബർ|ഒക്\342\200\214ടോബർ|നവംബർ|ഡിസംബർ"),
    words<12>("ജനു|ഫെബ്രു|മാർ|ഏപ്രി|മേയ്|ജൂൺ|ജൂലൈ|ഓഗ|സെപ്റ്റം|ഒക്ടോ|നവം|ഡിസം"),
    words<7>("ഞായറാഴ്\342\200\214ച|തിങ്കളാഴ്\342\200\214ച|ചൊവ്വാഴ്\342\200\214ച|ബുധനാഴ്\342\200\214ച|വ്യാഴാഴ്\342\200\214ച|വെള്ളിയാഴ്\342\200\214ച|ശനിയാഴ്\342\200\214ച"),
    words<7>("ഞായർ|തിങ്കൾ|ചൊവ്വ|ബുധൻ|വ്യാഴം|വെള്ളി|ശനി"),
};
constexpr LocaleNames kNames59 = {
    words<12>("জানুৱাৰী|ফেব্ৰুৱাৰী|মাৰ্চ|এপ্ৰিল|মে’|জুন|জুলাই|আগষ্ট|ছেপ্তেম্বৰ|অক্টোবৰ|নৱেম্বৰ|ডিচেম্বৰ"),
    words<12>("জানু|ফেব্ৰু|মাৰ্চ|এপ্ৰিল|মে’|জুন|জুলাই|আগ|ছেপ্তে|অক্টো|নৱে|ডিচে"),
    words<7>("দেওবাৰ|সোমবাৰ|মঙ্গলবাৰ|বুধবাৰ|বৃহস্পতিবাৰ|শুক্ৰবাৰ|শনিবাৰ"),
    words<7>("দেও|সোম|মঙ্গল|বুধ|বৃহ|শুক্ৰ|শনি"),
};
constexpr LocaleNames kNames60 = {
    words<12>("जानेवारी|फेब्रुवारी|मार्च|एप्रिल|मे|जून|जुलै|ऑगस्ट|सप्टेंबर|ऑक्टोबर|नोव्हेंबर|डिसेंबर"),
    words<12>("जाने|फेब्रु|मार्च|एप्रि|मे|जून|जुलै|ऑग|सप्टें|ऑक्टो|नोव्हें|डिसें"),
    words<7>("रविवार|सोमवार|मंगळवार|बुधवार|गुरुवार|शुक्रवार|शनिवार"),
    words<7>("रवि|सोम|मंगळ|बुध|गुरु|शुक्र|शनि"),
};
constexpr LocaleNames kNames61 = {
    words<12>("जनवरीमासः|फरवरीमासः|मार्चमासः|अप्रैलमासः|मईमासः|जूनमासः|जुलाईमासः|अगस्तमासः|सितंबरमासः|अक्तूबरमासः|नवंबरमासः|दिसंबरमासः"),
    words<12>("जनवरी:|फरवरी:|मार्च:|अप्रैल:|मई|जून:|जुलाई:|अगस्त:|सितंबर:|अक्तूबर:|नवंबर:|दिसंबर:"),
    words<7>("रविवासरः|सोमवासरः|मंगलवासरः|बुधवासरः|गुरुवासर:|शुक्रवासरः|शनिवासरः"),
    words<7>("रवि|सोम|मंगल|बुध|गुरु|शुक्र|शनि"),
};
constexpr LocaleNames kNames62 = {
    words<12>("Нэгдүгээр сар|Хоёрдугаар сар|Гуравдугаар сар|Дөрөвдүгээр сар|Тавдугаар сар|Зургаадугаар сар|Долоодугаар сар|Наймдугаар сар|Есдүгээр сар|Аравдугаар сар|Арван нэгдүгээр сар|Арван хоёрдугаар сар"),
    words<12>("1-р сар|2-р сар|3-р сар|4-р сар|5-р сар|6-р сар|7-р сар|8-р сар|9-р сар|10-р сар|11-р сар|12-р сар"),
    words<7>("Ням|Даваа|Мягмар|Лхагва|Пүрэв|Баасан|Бямба"),
    words<7>("Ня|Да|Мя|Лх|Пү|Ба|Бя"),
    words<12>("нэгдүгээр сар|хоёрдугаар сар|гуравдугаар сар|дөрөвдүгээр сар|тавдугаар сар|зургаадугаар сар|долоодугаар сар|наймдугаар сар|есдүгээр сар|аравдугаар сар|арван нэгдүгээр сар|арван хоёрдугаар сар"),
};
constexpr LocaleNames kNames63 = {
    words<12>("ཟླ་བ་དང་པོ་|ཟླ་བ་གཉིས་པ་|ཟླ་བ་གསུམ་པ་|ཟླ་བ་བཞི་པ་|ཟླ་བ་ལྔ་པ་|ཟླ་བ་དྲུག་པ་|ཟླ་བ་བདུན་པ་|ཟླ་བ་བརྒྱད་པ་|ཟླ་བ་དགུ་པ་|ཟླ་བ་བཅུ་པ་|ཟླ་བ་བཅུ་གཅིག་པ་|ཟླ་བ་བཅུ་གཉིས་པ་"),
    words<12>("ཟླ་༡|ཟླ་༢|ཟླ་༣|ཟླ་༤|ཟླ་༥|ཟླ་༦|ཟླ་༧|ཟླ་༨|ཟླ་༩|ཟླ་༡༠|ཟླ་༡༡|ཟླ་༡༢"),
    words<7>("གཟའ་ཉི་མ་|གཟའ་ཟླ་བ་|གཟའ་མིག་དམར་|གཟའ་ལྷག་པ་|གཟའ་ཕུར་བུ་|གཟའ་པ་སངས་|གཟའ་སྤེན་པ་"),
    words<7>("ཉི་མ་|ཟླ་བ་|མིག་དམར་|ལྷག་པ་|ཕུར་བུ་|པ་སངས་|སྤེན་པ་"),
    words<12>("ཟླ་བ་དང་པོ|ཟླ་བ་གཉིས་པ|ཟླ་བ་གསུམ་པ|ཟླ་བ་བཞི་པ|ཟླ་བ་ལྔ་པ|ཟླ་བ་དྲུག་པ|ཟླ་བ་བདུན་པ|ཟླ་བ་བརྒྱད་པ|ཟླ་བ་དགུ་པ|ཟླ་བ་བཅུ་པ|ཟླ་བ་བཅུ་གཅིག་པ|ཟླ་བ་བཅུ་གཉིས་པ"),
};
constexpr LocaleNames kNames64 = {
    words<12>("Ionawr|Chwefror|Mawrth|Ebrill|Mai|Mehefin|Gorffennaf|Awst|Medi|Hydref|Tachwedd|Rhagfyr"),
    words<12>("Ion|Chw|Maw|Ebr|Mai|Meh|Gor|Awst|Medi|Hyd|Tach|Rhag"),
    words<7>("Dydd Sul|Dydd Llun|Dydd Mawrth|Dydd Mercher|Dydd Iau|Dydd Gwener|Dydd Sadwrn"),
    words<7>("Sul|Llun|Maw|Mer|Iau|Gwe|Sad"),
};
constexpr LocaleNames kNames65 = {
    words<12>("មករា|កុម្ភៈ|មីនា|មេសា|ឧសភា|មិថុនា|កក្កដា|សីហា|កញ្ញា|តុលា|វិច្ឆិកា|ធ្នូ"),
    words<12>("មករា|កុម្ភៈ|មីនា|មេសា|ឧសភា|មិថុនា|កក្កដា|សីហា|កញ្ញា|តុលា|វិច្ឆិកា|ធ្នូ"),
    words<7>("អាទិត្យ|ចន្ទ|អង្គារ|ពុធ|ព្រហស្បតិ៍|សុក្រ|សៅរ៍"),
    words<7>("អាទិត្យ|ចន្ទ|អង្គារ|ពុធ|ព្រហ|សុក្រ|សៅរ៍"),
};
constexpr LocaleNames kNames66 = {
    words<12>("ມັງກອນ|ກຸມພາ|ມີນາ|ເມສາ|ພຶດສະພາ|ມິຖຸນາ|ກໍລະກົດ|ສິງຫາ|ກັນຍາ|ຕຸລາ|ພະຈິກ|ທັນວາ"),
    words<12>("ມ.ກ.|ກ.ພ.|ມ.ນ.|ມ.ສ.|ພ.ພ.|ມິ.ຖ.|ກ.ລ.|ສ.ຫ.|ກ.ຍ.|ຕ.ລ.|ພ.ຈ.|ທ.ວ."),
    words<7>("ວັນອາທິດ|ວັນຈັນ|ວັນອັງຄານ|ວັນພຸດ|ວັນພະຫັດ|ວັນສຸກ|ວັນເສົາ"),
    words<7>("ອາທິດ|ຈັນ|ອັງຄານ|ພຸດ|ພະຫັດ|ສຸກ|ເສົາ"),
};
constexpr LocaleNames kNames67 = {
    words<12>("Xaneiro|Febreiro|Marzo|Abril|Maio|Xuño|Xullo|Agosto|Setembro|Outubro|Novembro|Decembro"),
    words<12>("Xan.|Feb.|Mar.|Abr.|Maio|Xuño|Xul.|Ago.|Set.|Out.|Nov.|Dec."),
    words<7>("Domingo|Luns|Martes|Mércores|Xoves|Venres|Sábado"),
    words<7>("Dom.|Luns|Mar.|Mér.|Xov.|Ven.|Sáb."),
    words<12>("xaneiro|febreiro|marzo|abril|maio|xuño|xullo|agosto|setembro|outubro|novembro|decembro"),
};
constexpr LocaleNames kNames68 = {
    words<12>("जानेवारी|फेब्रुवारी|मार्च|एप्रील|मे|जून|जुलय|ऑगस्ट|सप्टेंबर|ऑक्टोबर|नोव्हेंबर|डिसेंबर"),
    words<12>("जाने|फेब्रु|मार्च|एप्री|मे|जून|जुल|ऑग|सप्टें|ऑक्टो|नो|डिसे"),
    words<7>("आयतार|सोमार|मंगळार|बुधवार|बिरेस्तार|शुक्रार|शेनवार"),
    words<7>("आयतार|सोमार|मंगळार|बुधवार|बिरेस्तार|शुक्रार|शेनवार"),
};
constexpr LocaleNames kNames69 = {
    words<12>("ජනවාරි|පෙබරවාරි|මාර්තු|අප්\342\200\215රේල්|මැයි|ජූනි|ජූලි|අගෝස්තු|සැප්තැම්බර්|ඔක්තෝබර්|නොවැම්බර්|දෙසැම්බර්"),
    words<12>("ජන|පෙබ|මාර්|අප්\342\200\215රේල්|මැයි|ජූනි|ජූලි|අගෝ|සැප්|ඔක්|නොවැ|දෙසැ"),
    words<7>("ඉරිදා|සඳුදා|අඟහරුවාදා|බදාදා|බ්\342\200\215රහස්පතින්දා|සිකුරාදා|සෙනසුරාදා"),
    words<7>("ඉරිදා|සඳුදා|අඟහ|බදාදා|බ්\342\200\215රහස්|සිකු|සෙන"),
};
constexpr LocaleNames kNames70 = {
    words<12>("ጃንዩወሪ|ፌብሩወሪ|ማርች|ኤፕሪል|ሜይ|ጁን|ጁላይ|ኦገስት|ሴፕቴምበር|ኦክቶበር|ኖቬምበር|ዲሴምበር"),
    words<12>("ጃንዩ|ፌብሩ|ማርች|ኤፕሪ|ሜይ|ጁን|ጁላይ|ኦገስ|ሴፕቴ|ኦክቶ|ኖቬም|ዲሴም"),
    words<7>("እሑድ|ሰኞ|ማክሰኞ|ረቡዕ|ሐሙስ|ዓርብ|ቅዳሜ"),
    words<7>("እሑድ|ሰኞ|ማክሰ|ረቡዕ|ሐሙስ|ዓርብ|ቅዳሜ"),
};
constexpr LocaleNames kNames71 = {
    words<12>("जनवरी|फेब्रुअरी|मार्च|अप्रिल|मे|जुन|जुलाई|अगस्ट|सेप्टेम्बर|अक्टोबर|नोभेम्बर|डिसेम्बर"),
    words<12>("जनवरी|फेब्रुअरी|मार्च|अप्रिल|मे|जुन|जुलाई|अगस्ट|सेप्टेम्बर|अक्टोबर|नोभेम्बर|डिसेम्बर"),
    words<7>("आइतबार|सोमबार|मङ्गलबार|बुधबार|बिहिबार|शुक्रबार|शनिबार"),
    words<7>("आइत|सोम|मङ्गल|बुध|बिहि|शुक्र|शनि"),
};
constexpr LocaleNames kNames72 = {
    words<12>("Jannewaris|Febrewaris|Maart|April|Maaie|Juny|July|Augustus|Septimber|Oktober|Novimber|Desimber"),
    words<12>("Jan|Feb|Mrt|Apr|Mai|Jun|Jul|Aug|Sep|Okt|Nov|Des"),
    words<7>("snein|moandei|tiisdei|woansdei|tongersdei|freed|sneon"),
    words<7>("si|mo|ti|wo|to|fr|so"),
};
constexpr LocaleNames kNames73 = {
    words<12>("جنوري|فېبروري|مارچ|اپریل|مۍ|جون|جولای|اګست|سپتمبر|اکتوبر|نومبر|دسمبر"),
    words<12>("جنوري|فبروري|مارچ|اپریل|مۍ|جون|جولای|اګست|سپتمبر|اکتوبر|نومبر|دسمبر"),
    words<7>("يونۍ|دونۍ|درېنۍ|څلرنۍ|پينځنۍ|جمعه|اونۍ"),
    words<7>("يونۍ|دونۍ|درېنۍ|څلرنۍ|پينځنۍ|جمعه|اونۍ"),
    words<12>("جنوري|فبروري|مارچ|اپریل|مۍ|جون|جولای|اګست|سېپتمبر|اکتوبر|نومبر|دسمبر"),
};
constexpr LocaleNames kNames74 = {
    words<12>("Enero|Pebrero|Marso|Abril|Mayo|Hunyo|Hulyo|Agosto|Setyembre|Oktubre|Nobyembre|Disyembre"),
    words<12>("Ene|Peb|Mar|Abr|May|Hun|Hul|Ago|Set|Okt|Nob|Dis"),
    words<7>("Linggo|Lunes|Martes|Miyerkules|Huwebes|Biyernes|Sabado"),
    words<7>("Lin|Lun|Mar|Miy|Huw|Biy|Sab"),
};
constexpr LocaleNames kNames75 = {
    words<12>("Janairu|Faburairu|Maris|Afirilu|Mayu|Yuni|Yuli|Agusta|Satumba|Oktoba|Nuwamba|Disamba"),
    words<12>("Jan|Fab|Mar|Afi|May|Yun|Yul|Agu|Sat|Okt|Nuw|Dis"),
    words<7>("Lahadi|Litinin|Talata|Laraba|Alhamis|Jummaʼa|Asabar"),
    words<7>("Lah|Lit|Tal|Lar|Alh|Jum|Asa"),
};
constexpr LocaleNames kNames76 = {
    words<12>("Ṣẹ́rẹ́|Èrèlè|Ẹrẹ̀nà|Ìgbé|Ẹ̀bibi|Òkúdu|Agẹmọ|Ògún|Owewe|Ọ̀wàrà|Bélú|Ọ̀pẹ̀"),
    words<12>("Ṣẹ́|Èr|Ẹr|Ìg|Ẹ̀b|Òk|Ag|Òg|Ow|Ọ̀w|Bé|Ọ̀p"),
    words<7>("Àìkú|Ajé|Ìsẹ́gun|Ọjọ́rú|Ọjọ́bọ|Ẹtì|Àbámẹ́ta"),
    words<7>("Àìk|Aj|Ìsẹ́g|Ọjọ́r|Ọjọ́b|Ẹt|Àbám"),
    words<12>("Oṣù Ṣẹ́rẹ́|Oṣù Èrèlè|Oṣù Ẹrẹ̀nà|Oṣù Ìgbé|Oṣù Ẹ̀bibi|Oṣù Òkúdu|Oṣù Agẹmọ|Oṣù Ògún|Oṣù Owewe|Oṣù Ọ̀wàrà|Oṣù Bélú|Oṣù Ọ̀pẹ̀"),
};
constexpr LocaleNames kNames77 = {
    words<12>("Januar|Februar|Mäerz|Abrëll|Mee|Juni|Juli|August|September|Oktober|November|Dezember"),
    words<12>("Jan|Feb|Mäe|Abr|Mee|Jun|Jul|Aug|Sep|Okt|Nov|Dez"),
    words<7>("Sonndeg|Méindeg|Dënschdeg|Mëttwoch|Donneschdeg|Freideg|Samschdeg"),
    words<7>("Son|Méi|Dën|Mët|Don|Fre|Sam"),
};
constexpr LocaleNames kNames78 = {
    words<12>("Jenụwarị|Febrụwarị|Maachị|Epreel|Mee|Juun|Julaị|Ọgọọst|Septemba|Ọktoba|Novemba|Disemba"),
    words<12>("Jen|Feb|Maa|Epr|Mee|Juu|Jul|Ọgọ|Sep|Ọkt|Nov|Dis"),
    words<7>("Sọndee|Mọnde|Tiuzdee|Wenezdee|Tọọzdee|Fraịdee|Satọdee"),
    words<7>("Sọn|Mọn|Tiu|Wen|Tọọ|Fraị|Sat"),
};
constexpr LocaleNames kNames79 = {
    words<12>("Amajjii|Guraandhala|Bitooteessa|Elba|Caamsa|Waxabajjii|Adooleessa|Hagayya|Fuulbana|Onkololeessa|Sadaasa|Muddee"),
    words<12>("Ama|Gur|Bit|Elb|Cam|Wax|Ado|Hag|Ful|Onk|Sad|Mud"),
    words<7>("Dilbata|Wiixata|Qibxata|Roobii|Kamiisa|Jimaata|Sanbata"),
    words<7>("Dil|Wix|Qib|Rob|Kam|Jim|San"),
};
constexpr LocaleNames kNames80 = {
    words<12>("ጥሪ|ለካቲት|መጋቢት|ሚያዝያ|ግንቦት|ሰነ|ሓምለ|ነሓሰ|መስከረም|ጥቅምቲ|ሕዳር|ታሕሳስ"),
    words<12>("ጥሪ|ለካ|መጋ|ሚያ|ግን|ሰነ|ሓም|ነሓ|መስ|ጥቅ|ሕዳ|ታሕ"),
    words<7>("ሰንበት|ሰኑይ|ሰሉስ|ረቡዕ|ሓሙስ|ዓርቢ|ቀዳም"),
    words<7>("ሰን|ሰኑ|ሰሉ|ረቡ|ሓሙ|ዓር|ቀዳ"),
};
constexpr LocaleNames kNames81 = {
    words<12>("Jannaayo|Febraayo|Maarso|Abriil|May|Juun|Luuliyo|Ogost|Sebtembar|Oktoobar|Nofembar|Desembar"),
    words<12>("Jan|Feb|Mar|Abr|May|Jun|Lul|Ogs|Seb|Okt|Nof|Dis"),
    words<7>("Axad|Isniin|Talaado|Arbaco|Khamiis|Jimco|Sabti"),
    words<7>("Axd|Isn|Tldo|Arbc|Khms|Jmc|Sbti"),
    words<12>("Bisha Koobaad|Bisha Labaad|Bisha Saddexaad|Bisha Afraad|Bisha Shanaad|Bisha Lixaad|Bisha Todobaad|Bisha Sideedaad|Bisha Sagaalaad|Bisha Tobnaad|Bisha Kow iyo Tobnaad|Bisha Laba iyo Tobnaad"),
};
constexpr LocaleNames kNames82 = {
    words<12>("ꋍꆪ|ꑍꆪ|ꌕꆪ|ꇖꆪ|ꉬꆪ|ꃘꆪ|ꏃꆪ|ꉆꆪ|ꈬꆪ|ꊰꆪ|ꊰꊪꆪ|ꊰꑋꆪ"),
    words<12>("ꋍꆪ|ꑍꆪ|ꌕꆪ|ꇖꆪ|ꉬꆪ|ꃘꆪ|ꏃꆪ|ꉆꆪ|ꈬꆪ|ꊰꆪ|ꊰꊪꆪ|ꊰꑋꆪ"),
    words<7>("ꑭꆏꑍ|ꆏꊂꋍ|ꆏꊂꑍ|ꆏꊂꌕ|ꆏꊂꇖ|ꆏꊂꉬ|ꆏꊂꃘ"),
    words<7>("ꑭꆏ|ꆏꋍ|ꆏꑍ|ꆏꌕ|ꆏꇖ|ꆏꉬ|ꆏꃘ"),
};
constexpr LocaleNames kNames83 = {
    words<12>("Genver|Cʼhwevrer|Meurzh|Ebrel|Mae|Mezheven|Gouere|Eost|Gwengolo|Here|Du|Kerzu"),
    words<12>("Gen.|Cʼhwe.|Meur.|Ebr.|Mae|Mezh.|Goue.|Eost|Gwen.|Here|Du|Kzu."),
    words<7>("Sul|Lun|Meurzh|Mercʼher|Yaou|Gwener|Sadorn"),
    words<7>("Sul|Lun|Meu.|Mer.|Yaou|Gwe.|Sad."),
};
constexpr LocaleNames kNames84 = {
    words<12>("يانۋار|فېۋرال|مارت|ئاپرېل|ماي|ئىيۇن|ئىيۇل|ئاۋغۇست|سېنتەبىر|ئۆكتەبىر|نويابىر|دېكابىر"),
    words<12>("يانۋار|فېۋرال|مارت|ئاپرېل|ماي|ئىيۇن|ئىيۇل|ئاۋغۇست|سېنتەبىر|ئۆكتەبىر|نويابىر|دېكابىر"),
    words<7>("يەكشەنبە|دۈشەنبە|سەيشەنبە|چارشەنبە|پەيشەنبە|جۈمە|شەنبە"),
    words<7>("يە|دۈ|سە|چا|پە|جۈ|شە"),
};
constexpr LocaleNames kNames85 = {
    words<12>("Kohitātea|Huitanguru|Poutūterangi|Paengawhāwhā|Haratua|Pipiri|Hōngongoi|Hereturikōkā|Mahuru|Whiringa-ā-nuku|Whiringa-ā-rangi|Hakihea"),
    words<12>("Kohi|Hui|Pou|Pae|Hara|Pipi|Hōngo|Here|Mahu|Nuku|Rangi|Haki"),
    words<7>("Rātapu|Rāhina|Rātū|Rāapa|Rāpare|Rāmere|Rāhoroi"),
    words<7>("Tap|Hin|Tū|Apa|Par|Mer|Hor"),
};
constexpr LocaleNames kNames86 = {
    words<12>("Januar|Februar|März|April|Mai|Juni|Juli|Auguscht|Septämber|Oktoober|Novämber|Dezämber"),
    words<12>("Jan|Feb|Mär|Apr|Mai|Jun|Jul|Aug|Sep|Okt|Nov|Dez"),
    words<7>("Sunntig|Määntig|Ziischtig|Mittwuch|Dunschtig|Friitig|Samschtig"),
    words<7>("Su.|Mä.|Zi.|Mi.|Du.|Fr.|Sa."),
};
constexpr LocaleNames kNames87 = {
    words<12>("тохсунньу|олунньу|кулун тутар|муус устар|ыам ыйа|бэс ыйа|от ыйа|атырдьых ыйа|балаҕан ыйа|алтынньы|сэтинньи|ахсынньы"),
    words<12>("Тохс|Олун|Клн|Мсу|Ыам|Бэс|Отй|Атр|Блҕ|Алт|Сэт|Ахс"),
    words<7>("баскыһыанньа|бэнидиэнньик|оптуорунньук|сэрэдэ|чэппиэр|Бээтиҥсэ|субуота"),
    words<7>("бс|бн|оп|сэ|чп|бэ|сб"),
    words<12>("Тохсунньу|Олунньу|Кулун тутар|Муус устар|Ыам ыйын|Бэс ыйын|От ыйын|Атырдьых ыйын|Балаҕан ыйын|Алтынньы|Сэтинньи|ахсынньы"),
};
constexpr LocaleNames kNames88 = {
    words<12>("Mutarama|Gashyantare|Werurwe|Mata|Gicurasi|Kamena|Nyakanga|Kanama|Nzeli|Ukwakira|Ugushyingo|Ukuboza"),
    words<12>("mut.|gas.|wer.|mat.|gic.|kam.|nya.|kan.|nze.|ukw.|ugu.|uku."),
    words<7>("Ku cyumweru|Kuwa mbere|Kuwa kabiri|Kuwa gatatu|Kuwa kane|Kuwa gatanu|Kuwa gatandatu"),
    words<7>("cyu.|mbe.|kab.|gtu.|kan.|gnu.|gnd."),
};
constexpr LocaleNames kNames89 = {
    words<12>("Samwiyee|Fewriyee|Mars|Awril|Mee|Suwe|Sulet|Ut|Sàttumbar|Oktoobar|Nowàmbar|Desàmbar"),
    words<12>("Sam|Few|Mar|Awr|Mee|Suw|Sul|Ut|Sàt|Okt|Now|Des"),
    words<7>("Dibéer|Altine|Talaata|Àlarba|Alxamis|Àjjuma|Aseer"),
    words<7>("Dib|Alt|Tal|Àla|Alx|Àjj|Ase"),
};
constexpr LocaleNames kNames90 = {
    words<12>("جنوری|فبروری|مارچ|اپریل|می|جون|جولای|اگست|سپتمبر|اکتوبر|نومبر|دسمبر"),
    words<12>("جنوری|فبروری|مارچ|اپریل|می|جون|جولای|اگست|سپتمبر|اکتوبر|نومبر|دسمبر"),
    words<7>("یکشنبه|دوشنبه|سه\342\200\214شنبه|چهارشنبه|پنجشنبه|جمعه|شنبه"),
    words<7>("یکشنبه|دوشنبه|سه\342\200\214شنبه|چهارشنبه|پنجشنبه|جمعه|شنبه"),
};
constexpr LocaleNames kNames91 = {
    words<12>("Am Faoilleach|An Gearran|Am Màrt|An Giblean|An Cèitean|An t-Ògmhios|An t-Iuchar|An Lùnastal|An t-Sultain|An Dàmhair|An t-Samhain|An Dùbhlachd"),
    words<12>("Faoi|Gearr|Màrt|Gibl|Cèit|Ògmh|Iuch|Lùna|Sult|Dàmh|Samh|Dùbh"),
    words<7>("DiDòmhnaich|DiLuain|DiMàirt|DiCiadain|DiarDaoin|DihAoine|DiSathairne"),
    words<7>("DiD|DiL|DiM|DiC|Dia|Dih|DiS"),
    words<12>("dhen Fhaoilleach|dhen Ghearran|dhen Mhàrt|dhen Ghiblean|dhen Chèitean|dhen Ògmhios|dhen Iuchar|dhen Lùnastal|dhen t-Sultain|dhen Dàmhair|dhen t-Samhain|dhen Dùbhlachd"),
};
constexpr LocaleNames kNames92 = {
    words<12>("كانون الثاني|شباط|آذار|نيسان|أيار|حزيران|تموز|آب|أيلول|تشرين الأول|تشرين الثاني|كانون الأول"),
    words<12>("كانون الثاني|شباط|آذار|نيسان|أيار|حزيران|تموز|آب|أيلول|تشرين الأول|تشرين الثاني|كانون الأول"),
    words<7>("الأحد|الاثنين|الثلاثاء|الأربعاء|الخميس|الجمعة|السبت"),
    words<7>("الأحد|الاثنين|الثلاثاء|الأربعاء|الخميس|الجمعة|السبت"),
};
constexpr LocaleNames kNames93 = {
    words<12>("一月|二月|三月|四月|五月|六月|七月|八月|九月|十月|十一月|十二月"),
    words<12>("1月|2月|3月|4月|5月|6月|7月|8月|9月|10月|11月|12月"),
    words<7>("星期日|星期一|星期二|星期三|星期四|星期五|星期六"),
    words<7>("周日|周一|周二|周三|周四|周五|周六"),
};
constexpr LocaleNames kNames94 = {
    words<12>("enero|febrero|marzo|abril|mayo|junio|julio|agosto|septiembre|octubre|noviembre|diciembre"),
    words<12>("ene|feb|mar|abr|may|jun|jul|ago|sept|oct|nov|dic"),
    words<7>("domingo|lunes|martes|miércoles|jueves|viernes|sábado"),
    words<7>("dom|lun|mar|mié|jue|vie|sáb"),
};
constexpr LocaleNames kNames95 = {
    words<12>("janvier|février|mars|avril|mai|juin|juillet|août|septembre|octobre|novembre|décembre"),
    words<12>("janv.|févr.|mars|avr.|mai|juin|juil.|août|sept.|oct.|nov.|déc."),
    words<7>("dimanche|lundi|mardi|mercredi|jeudi|vendredi|samedi"),
    words<7>("dim.|lun.|mar.|mer.|jeu.|ven.|sam."),
};
constexpr LocaleNames kNames96 = {
    words<12>("gennaio|febbraio|marzo|aprile|maggio|giugno|luglio|agosto|settembre|ottobre|novembre|dicembre"),
    words<12>("gen|feb|mar|apr|mag|giu|lug|ago|set|ott|nov|dic"),
    words<7>("domenica|lunedì|martedì|mercoledì|giovedì|venerdì|sabato"),
    words<7>("dom|lun|mar|mer|gio|ven|sab"),
};
constexpr LocaleNames kNames97 = {
    words<12>("januar|februar|mars|april|mai|juni|juli|august|september|oktober|november|desember"),
    words<12>("jan.|feb.|mars|apr.|mai|juni|juli|aug.|sep.|okt.|nov.|des."),
    words<7>("søndag|måndag|tysdag|onsdag|torsdag|fredag|laurdag"),
    words<7>("søn|mån|tys|ons|tor|fre|lau"),
};
constexpr LocaleNames kNames98 = {
    words<12>("ianuarie|februarie|martie|aprilie|mai|iunie|iulie|august|septembrie|octombrie|noiembrie|decembrie"),
    words<12>("ian.|feb.|mar.|apr.|mai|iun.|iul.|aug.|sept.|oct.|nov.|dec."),
    words<7>("duminică|luni|marți|miercuri|joi|vineri|sâmbătă"),
    words<7>("Dum|Lun|Mar|Mie|Joi|Vin|Sâm"),
};
constexpr LocaleNames kNames99 = {
    words<12>("januar|februar|mart|april|maj|jun|jul|avgust|septembar|oktobar|novembar|decembar"),
    words<12>("jan|feb|mar|apr|maj|jun|jul|avg|sep|okt|nov|dec"),
    words<7>("nedelja|ponedeljak|utorak|sreda|četvrtak|petak|subota"),
    words<7>("ned|pon|uto|sre|čet|pet|sub"),
};
constexpr LocaleNames kNames100 = {
    words<12>("januari|februari|mars|april|maj|juni|juli|augusti|september|oktober|november|december"),
    words<12>("jan.|feb.|mars|apr.|maj|juni|juli|aug.|sep.|okt.|nov.|dec."),
    words<7>("söndag|måndag|tisdag|onsdag|torsdag|fredag|lördag"),
    words<7>("sön|mån|tis|ons|tors|fre|lör"),
};
constexpr LocaleNames kNames101 = {
    words<12>("Јанвар|Феврал|Март|Апрел|Май|Ијун|Ијул|Август|Сентјабр|Октјабр|Нојабр|Декабр"),
    words<12>("јан|фев|мар|апр|май|ијн|ијл|авг|сен|окт|ној|дек"),
    words<7>("базар|базар ертәси|чәршәнбә ахшамы|чәршәнбә|ҹүмә ахшамы|ҹүмә|шәнбә"),
    words<7>("Б.|Б.Е.|Ч.А.|Ч.|Ҹ.А.|Ҹ.|Ш."),
    words<12>("јанвар|феврал|март|апрел|май|ијун|ијул|август|сентјабр|октјабр|нојабр|декабр"),
};
constexpr LocaleNames kNames102 = {
    words<12>("Eanáir|Feabhra|Márta|Aibreán|Bealtaine|Meitheamh|Iúil|Lúnasa|Meán Fómhair|Deireadh Fómhair|Samhain|Nollaig"),
    words<12>("Ean|Feabh|Márta|Aib|Beal|Meith|Iúil|Lún|MFómh|DFómh|Samh|Noll"),
    words<7>("Dé Domhnaigh|Dé Luain|Dé Máirt|Dé Céadaoin|Déardaoin|Dé hAoine|Dé Sathairn"),
    words<7>("Domh|Luan|Máirt|Céad|Déar|Aoine|Sath"),
};
constexpr LocaleNames kNames103 = {
    words<12>("январ|феврал|март|апрел|май|июн|июл|август|сентябр|октябр|ноябр|декабр"),
    words<12>("янв|фев|мар|апр|май|июн|июл|авг|сен|окт|ноя|дек"),
    words<7>("якшанба|душанба|сешанба|чоршанба|пайшанба|жума|шанба"),
    words<7>("якш|душ|сеш|чор|пай|жум|шан"),
};
constexpr LocaleNames kNames104 = {
    words<12>("јануар|фебруар|март|април|мај|јун|јул|август|септембар|октобар|новембар|децембар"),
    words<12>("јан|феб|мар|апр|мај|јун|јул|авг|сеп|окт|нов|дец"),
    words<7>("недеља|понедељак|уторак|среда|четвртак|петак|субота"),
    words<7>("нед|пон|уто|сре|чет|пет|суб"),
};
constexpr LocaleNames kNames105 = {
    words<12>("ođđajagemánnu|guovvamánnu|njukčamánnu|cuoŋománnu|miessemánnu|geassemánnu|suoidnemánnu|borgemánnu|čakčamánnu|golggotmánnu|skábmamánnu|juovlamánnu"),
    words<12>("ođđj|guov|njuk|cuoŋ|mies|geas|suoi|borg|čakč|golg|skáb|juov"),
    words<7>("sotnabeaivi|mánnodat|disdat|gaskavahkku|duorastat|bearjadat|lávvordat"),
    words<7>("so|má|di|ga|du|be|lá"),
};
constexpr LocaleNames kNames106 = {
    words<12>("Januar|Februar|März|April|Mai|Juni|Juli|August|September|Oktober|November|Dezember"),
    words<12>("Jan|Feb|Mär|Apr|Mai|Jun|Jul|Aug|Sep|Okt|Nov|Dez"),
    words<7>("Sonntag|Montag|Dienstag|Mittwoch|Donnerstag|Freitag|Samstag"),
    words<7>("So|Mo|Di|Mi|Do|Fr|Sa"),
};
constexpr LocaleNames kNames107 = {
    words<12>("جانفي|فيفري|مارس|أفريل|ماي|جوان|جويلية|أوت|سبتمبر|أكتوبر|نوفمبر|ديسمبر"),
    words<12>("جانفي|فيفري|مارس|أفريل|ماي|جوان|جويلية|أوت|سبتمبر|أكتوبر|نوفمبر|ديسمبر"),
    words<7>("الأحد|الاثنين|الثلاثاء|الأربعاء|الخميس|الجمعة|السبت"),
    words<7>("الأحد|الاثنين|الثلاثاء|الأربعاء|الخميس|الجمعة|السبت"),
};
constexpr LocaleNames kNames108 = {
    words<12>("januar|februar|mart|april|maj|juni|juli|august|septembar|oktobar|novembar|decembar"),
    words<12>("jan|feb|mar|apr|maj|jun|jul|aug|sep|okt|nov|dec"),
    words<7>("nedjelja|ponedjeljak|utorak|srijeda|četvrtak|petak|subota"),
    words<7>("ned|pon|uto|sri|čet|pet|sub"),
};
constexpr LocaleNames kNames109 = {
    words<12>("يناير|فبراير|مارس|أبريل|ماي|يونيو|يوليوز|غشت|شتنبر|أكتوبر|نونبر|دجنبر"),
    words<12>("يناير|فبراير|مارس|أبريل|ماي|يونيو|يوليوز|غشت|شتنبر|أكتوبر|نونبر|دجنبر"),
    words<7>("الأحد|الاثنين|الثلاثاء|الأربعاء|الخميس|الجمعة|السبت"),
    words<7>("الأحد|الاثنين|الثلاثاء|الأربعاء|الخميس|الجمعة|السبت"),
};
constexpr LocaleNames kNames110 = {
    words<12>("januar|februar|mart|april|maj|jun|jul|avgust|septembar|oktobar|novembar|decembar"),
    words<12>("jan|feb|mar|apr|maj|jun|jul|avg|sep|okt|nov|dec"),
    words<7>("nedjelja|ponedjeljak|utorak|srijeda|četvrtak|petak|subota"),
    words<7>("ned|pon|uto|sri|čet|pet|sub"),
};
constexpr LocaleNames kNames111 = {
    words<12>("January|February|March|April|May|June|July|August|September|October|November|December"),
    words<12>("Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sept|Oct|Nov|Dec"),
    words<7>("Sunday|Monday|Tuesday|Wednesday|Thursday|Friday|Saturday"),
    words<7>("Sun|Mon|Tue|Wed|Thu|Fri|Sat"),
};
constexpr LocaleNames kNames112 = {
    words<12>("јануар|фебруар|март|април|мај|јун|јул|август|септембар|октобар|новембар|децембар"),
    words<12>("јан|феб|мар|апр|мај|јун|јул|авг|сеп|окт|нов|дец"),
    words<7>("недјеља|понедјељак|уторак|сриједа|четвртак|петак|субота"),
    words<7>("нед|пон|уто|сри|чет|пет|суб"),
};
constexpr LocaleNames kNames113 = {
    words<12>("enero|febrero|marzo|abril|mayo|junio|julio|agosto|septiembre|octubre|noviembre|diciembre"),
    words<12>("ene.|feb.|mar.|abr.|may.|jun.|jul.|ago.|sept.|oct.|nov.|dic."),
    words<7>("domingo|lunes|martes|miércoles|jueves|viernes|sábado"),
    words<7>("dom|lun|mar|mié|jue|vie|sáb"),
};
constexpr LocaleNames kNames114 = {
    words<12>("јануар|фебруар|март|април|мај|јуни|јули|аугуст|септембар|октобар|новембар|децембар"),
    words<12>("јан|феб|мар|апр|мај|јун|јул|ауг|сеп|окт|нов|дец"),
    words<7>("недјеља|понедјељак|уторак|сриједа|четвртак|петак|субота"),
    words<7>("нед|пон|уто|сри|чет|пет|суб"),
};
constexpr LocaleNames kNames115 = {
    words<12>("Enero|Febrero|Marzo|Abril|Mayo|Junio|Julio|Agosto|Setiembre|Octubre|Noviembre|Diciembre"),
    words<12>("Ene.|Feb.|Mar.|Abr.|May.|Jun.|Jul.|Ago.|Set.|Oct.|Nov.|Dic."),
    words<7>("domingo|lunes|martes|miércoles|jueves|viernes|sábado"),
    words<7>("dom|lun|mar|mié|jue|vie|sáb"),
    words<12>("enero|febrero|marzo|abril|mayo|junio|julio|agosto|setiembre|octubre|noviembre|diciembre"),
};
constexpr LocaleNames kNames116 = {
    words<12>("januar|februar|mart|april|maj|jun|jul|avgust|septembar|oktobar|novembar|decembar"),
    words<12>("jan|feb|mart|apr|maj|jun|jul|avg|sept|okt|nov|dec"),
    words<7>("nedjelja|ponedeljak|utorak|srijeda|četvrtak|petak|subota"),
    words<7>("nedjelja|ponedeljak|utorak|srijeda|četvrtak|petak|subota"),
};
constexpr LocaleNames kNames117 = {
    words<12>("јануар|фебруар|март|април|мај|јун|јул|август|септембар|октобар|новембар|децембар"),
    words<12>("јан|феб|март|апр|мај|јун|јул|авг|септ|окт|нов|дец"),
    words<7>("недјеља|понедељак|уторак|сриједа|четвртак|петак|субота"),
    words<7>("недјеља|понедељак|уторак|сриједа|четвртак|петак|субота"),
};
constexpr LocaleNames kNames118 = {
    words<12>("January|February|March|April|May|June|July|August|September|October|November|December"),
    words<12>("Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec"),
    words<7>("Sunday|Monday|Tuesday|Wednesday|Thursday|Friday|Saturday"),
    words<7>("Sun|Mon|Tue|Wed|Thu|Fri|Sat"),
};

constexpr auto kMonthFirst = DateOrder::MonthDayYear;
constexpr auto kDayFirst = DateOrder::DayMonthYear;
constexpr auto kYearFirst = DateOrder::YearMonthDay;

using enum HourForm;

constexpr Locale kOtherLocales[] = {
    {1025, "ar-sa", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     Twelve, "ر.س.", "$ n", "-$ n", kNames0, 1, 2, "ص", "م", false},
    {1026, "bg-bg", ',', "\302\240", kDayFirst, '.', "d.M.yyyy", "d MMMM yyyy 'г'.",
     AsNeeded, "лв.", "n $", "-n $", kNames1, 2, 2, "проб", "слоб", false},
    {1027, "ca-es", ',', ".", kDayFirst, '/', "d/M/yyyy", "d MMMM 'de' yyyy",
     AsNeeded, "€", "n $", "-n $", kNames2, 2, 2, "AM", "PM", false},
    {1028, "zh-tw", '.', ",", kYearFirst, '/', "yyyy/M/d", "yyyy年M月d日",
     Twelve, "$", "$n", "-$n", kNames3, 1, 2, "上午", "下午", true},
    {1029, "cs-cz", ',', "\302\240", kDayFirst, '.', "dd.MM.yyyy", "d. MMMM yyyy",
     AsNeeded, "Kč", "n $", "-n $", kNames4, 2, 2, "DOP", "ODP", false},
    {1032, "el-gr", ',', ".", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "€", "n $", "-n $", kNames5, 2, 2, "πμ", "μμ", false},
    {1037, "he-il", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d בMMMM yyyy",
     AsNeeded, "₪", "n $", "-n $", kNames6, 1, 2, "לפנה״צ", "אחה״צ", false},
    {1038, "hu-hu", ',', "\302\240", kYearFirst, '.', "yyyy. MM. dd.", "yyyy. MMMM d.",
     AsNeeded, "Ft", "n $", "-n $", kNames7, 2, 2, "DE", "DU", false},
    {1039, "is-is", ',', ".", kDayFirst, '.', "d.M.yyyy", "d. MMMM yyyy",
     TwoDigits, "kr", "n $", "-n $", kNames8, 2, 0, "FH", "EH", false},
    {1041, "ja-jp", '.', ",", kYearFirst, '/', "yyyy/MM/dd", "yyyy年M月d日",
     AsNeeded, "¥", "$n", "-$n", kNames9, 1, 0, "午前", "午後", false},
    {1042, "ko-kr", '.', ",", kYearFirst, '-', "yyyy-MM-dd", "yyyy년 M월 d일",
     Twelve, "₩", "$n", "-$n", kNames10, 1, 0, "오전", "오후", true},
    {1045, "pl-pl", ',', "\302\240", kDayFirst, '.', "d.MM.yyyy", "d MMMM yyyy",
     TwoDigits, "zł", "n $", "-n $", kNames11, 2, 2, "AM", "PM", false},
    {1047, "rm-ch", '.', "'", kDayFirst, '-', "dd-MM-yyyy", "d MMMM yyyy",
     TwoDigits, "CHF", "n $", "-n $", kNames12, 2, 2, "AM", "PM", false},
    {1048, "ro-ro", ',', ".", kDayFirst, '.', "dd.MM.yyyy", "d MMMM yyyy",
     TwoDigits, "lei", "n $", "-n $", kNames13, 2, 2, "AM", "PM", false},
    {1049, "ru-ru", ',', "\302\240", kDayFirst, '.', "dd.MM.yyyy", "d MMMM yyyy 'г'.",
     TwoDigits, "₽", "n $", "-n $", kNames14, 2, 2, "AM", "PM", false},
    {1050, "hr-hr", ',', ".", kDayFirst, '.', "dd. MM. yyyy.", "d. MMMM yyyy.",
     TwoDigits, "kn", "n $", "-n $", kNames15, 2, 2, "AM", "PM", false},
    {1051, "sk-sk", ',', "\302\240", kDayFirst, '.', "d. M. yyyy", "d. MMMM yyyy",
     AsNeeded, "€", "n $", "-n $", kNames16, 2, 2, "AM", "PM", false},
    {1052, "sq-al", ',', "\302\240", kDayFirst, '.', "d.M.yyyy", "d MMMM yyyy",
     Twelve, "Lekë", "n $", "-n $", kNames17, 2, 0, "EPARADITES", "EPASDITES", false},
    {1054, "th-th", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     TwoDigits, "฿", "$n", "-$n", kNames18, 1, 2, "ก่อนเที่ยง", "หลังเที่ยง", false},
    {1055, "tr-tr", ',', ".", kDayFirst, '.', "d.MM.yyyy", "d MMMM yyyy",
     TwoDigits, "₺", "$n", "-$n", kNames19, 2, 2, "ÖÖ", "ÖS", false},
    {1056, "ur-pk", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM، yyyy",
     Twelve, "Rs", "$ n", "-$ n", kNames20, 1, 2, "AM", "PM", false},
    {1057, "id-id", ',', ".", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     TwoDigits, "Rp", "$n", "-$n", kNames21, 1, 2, "AM", "PM", false},
    {1058, "uk-ua", ',', "\302\240", kDayFirst, '.', "dd.MM.yyyy", "d MMMM yyyy 'р'.",
     TwoDigits, "₴", "n $", "-n $", kNames22, 2, 2, "дп", "пп", false},
    {1059, "be-by", ',', "\302\240", kDayFirst, '.', "d.MM.yyyy", "d MMMM yyyy 'г'.",
     TwoDigits, "Br", "n $", "-n $", kNames23, 2, 2, "AM", "PM", false},
    {1060, "sl-si", ',', ".", kDayFirst, '.', "d. MM. yyyy", "d. MMMM yyyy",
     TwoDigits, "€", "n $", "-n $", kNames24, 2, 2, "DOP", "POP", false},
    {1061, "et-ee", ',', "\302\240", kDayFirst, '.', "dd.MM.yyyy", "d. MMMM yyyy",
     TwoDigits, "€", "n $", "-n $", kNames25, 2, 2, "AM", "PM", false},
    {1062, "lv-lv", ',', "\302\240", kDayFirst, '.', "dd.MM.yyyy", "yyyy. 'gada' d. MMMM",
     TwoDigits, "€", "n $", "-n $", kNames26, 2, 2, "priekšp", "pēcp", false},
    {1063, "lt-lt", ',', "\302\240", kYearFirst, '-', "yyyy-MM-dd", "yyyy 'm'. MMMM d 'd'.",
     TwoDigits, "€", "n $", "-n $", kNames27, 2, 2, "priešpiet", "POPIET", false},
    {1064, "tg-cyrl-tj", ',', "\302\240", kDayFirst, '/', "dd/MM/yyyy", "dd MMMM yyyy",
     TwoDigits, "сом.", "n $", "-n $", kNames28, 2, 2, "AM", "PM", false},
    {1065, "fa-ir", '.', ",", kYearFirst, '/', "yyyy/M/d", "d MMMM yyyy",
     AsNeeded, "ریال", "$ n", "-$ n", kNames29, 7, 0, "قظ", "بظ", false},
    {1066, "vi-vn", ',', ".", kDayFirst, '/', "dd/MM/yyyy", "d MMMM, yyyy",
     TwoDigits, "₫", "n $", "-n $", kNames30, 2, 0, "SA", "CH", false},
    {1067, "hy-am", ',', "\302\240", kDayFirst, '.', "dd.MM.yyyy", "dd MMMM, yyyy թ.",
     TwoDigits, "֏", "n $", "-n $", kNames31, 2, 2, "AM", "PM", false},
    {1068, "az-latn-az", ',', ".", kDayFirst, '.', "dd.MM.yyyy", "d MMMM yyyy",
     TwoDigits, "₼", "n $", "-n $", kNames32, 2, 2, "AM", "PM", false},
    {1069, "eu-es", ',', ".", kYearFirst, '/', "yyyy/M/d", "yyyy('e')'ko' MMMM'ren' d('a')",
     TwoDigits, "€", "n $", "-n $", kNames33, 2, 2, "AM", "PM", false},
    {1070, "hsb-de", ',', ".", kDayFirst, '.', "d.M.yyyy", "d. MMMM yyyy",
     AsNeeded, "€", "n $", "-n $", kNames34, 2, 2, "dopołdnja", "popołdnju", false},
    {1071, "mk-mk", ',', ".", kDayFirst, '.', "d.M.yyyy", "d MMMM yyyy",
     TwoDigits, "ден.", "n $", "-n $", kNames35, 2, 2, "претпл", "попл", false},
    {1076, "xh-za", '.', "\302\240", kYearFirst, '-', "yyyy-MM-dd", "yyyy MMMM d",
     TwoDigits, "R", "$n", "-$n", kNames36, 1, 2, "AM", "PM", false},
    {1077, "zu-za", '.', ",", kMonthFirst, '/', "M/d/yyyy", "MMMM d, yyyy",
     TwoDigits, "R", "$n", "-$n", kNames37, 1, 2, "AM", "PM", false},
    {1078, "af-za", ',', "\302\240", kYearFirst, '-', "yyyy-MM-dd", "dd MMMM yyyy",
     TwoDigits, "R", "$n", "-$n", kNames38, 1, 2, "VM", "NM", false},
    {1079, "ka-ge", ',', "\302\240", kDayFirst, '.', "dd.MM.yyyy", "d MMMM, yyyy",
     TwoDigits, "₾", "n $", "-n $", kNames39, 2, 2, "AM", "PM", false},
    {1080, "fo-fo", ',', ".", kDayFirst, '.', "dd.MM.yyyy", "d. MMMM yyyy",
     TwoDigits, "kr", "n $", "-n $", kNames40, 2, 2, "AM", "PM", false},
    {1081, "hi-in", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "₹", "$n", "-$n", kNames41, 1, 2, "AM", "PM", false},
    {1082, "mt-mt", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d 'ta'’ MMMM yyyy",
     TwoDigits, "€", "$n", "-$n", kNames42, 1, 2, "AM", "PM", false},
    {1083, "se-no", ',', "\302\240", kYearFirst, '-', "yyyy-MM-dd", "yyyy MMMM d",
     TwoDigits, "kr", "n $", "-n $", kNames43, 2, 2, "iđitbeaivet", "EAHKETBEAIVET", false},
    {1086, "ms-my", '.', ",", kDayFirst, '/', "d/MM/yyyy", "d MMMM yyyy",
     Twelve, "RM", "$n", "-$n", kNames44, 2, 2, "PG", "PTG", false},
    {1087, "kk-kz", ',', "\302\240", kDayFirst, '.', "dd.MM.yyyy", "yyyy 'ж'. d MMMM",
     TwoDigits, "₸", "n $", "-n $", kNames45, 2, 2, "AM", "PM", false},
    {1088, "ky-kg", ',', "\302\240", kDayFirst, '/', "d/M/yyyy", "yyyy-'ж'., d-MMMM",
     TwoDigits, "сом", "n $", "-n $", kNames46, 2, 2, "тң", "тк", false},
    {1089, "sw-ke", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     TwoDigits, "Ksh", "$ n", "-$ n", kNames47, 1, 2, "AM", "PM", false},
    {1090, "tk-tm", ',', "\302\240", kDayFirst, '.', "dd.MM.yyyy", "d MMMM yyyy",
     TwoDigits, "TMT", "n $", "-n $", kNames48, 2, 2, "goöň", "gosoň", false},
    {1091, "uz-latn-uz", ',', "\302\240", kDayFirst, '/', "dd/MM/yyyy", "d-MMMM, yyyy",
     TwoDigits, "soʻm", "n $", "-n $", kNames49, 2, 2, "TO", "TK", false},
    {1092, "tt-ru", ',', "\302\240", kDayFirst, '.', "dd.MM.yyyy", "d MMMM, yyyy 'ел'",
     AsNeeded, "₽", "n $", "-n $", kNames50, 2, 2, "AM", "PM", false},
    {1093, "bn-in", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM, yyyy",
     Twelve, "₹", "n$", "-n$", kNames51, 1, 2, "AM", "PM", false},
    {1094, "pa-in", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "₹", "$ n", "-$ n", kNames52, 1, 2, "ਪੂਦੁ", "ਬਾਦੁ", false},
    {1095, "gu-in", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM, yyyy",
     Twelve, "₹", "$n", "-$n", kNames53, 1, 2, "AM", "PM", false},
    {1096, "or-in", '.', ",", kMonthFirst, '/', "M/d/yyyy", "MMMM d, yyyy",
     Twelve, "₹", "$n", "-$n", kNames54, 1, 2, "AM", "PM", false},
    {1097, "ta-in", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM, yyyy",
     Twelve, "₹", "$ n", "-$ n", kNames55, 1, 2, "முற்பகல்", "பிற்பகல்", true},
    {1098, "te-in", '.', ",", kDayFirst, '-', "dd-MM-yyyy", "d MMMM, yyyy",
     Twelve, "₹", "$n", "-$n", kNames56, 1, 2, "AM", "PM", false},
    {1099, "kn-in", '.', ",", kDayFirst, '/', "d/M/yyyy", "MMMM d, yyyy",
     Twelve, "₹", "$n", "-$n", kNames57, 1, 2, "ಪೂರ್ವಾಹ್ನ", "ಅಪರಾಹ್ನ", false},
    {1100, "ml-in", '.', ",", kDayFirst, '/', "d/M/yyyy", "yyyy, MMMM d",
     Twelve, "₹", "$n", "-$n", kNames58, 1, 2, "AM", "PM", false},
    {1101, "as-in", '.', ",", kDayFirst, '-', "d-M-yyyy", "d MMMM, yyyy",
     Twelve, "₹", "$ n", "-$ n", kNames59, 1, 2, "পূৰ্বাহ্ন", "অপৰাহ্ন", true},
    {1102, "mr-in", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM, yyyy",
     Twelve, "₹", "$n", "-$n", kNames60, 1, 2, "AM", "PM", false},
    {1103, "sa-in", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "₹", "$n", "-$n", kNames61, 1, 2, "पूर्वाह्न", "अपराह्न", false},
    {1104, "mn-mn", '.', ",", kYearFirst, '.', "yyyy.MM.dd", "yyyy 'оны' MMMM'ын' d",
     TwoDigits, "₮", "$ n", "-$ n", kNames62, 2, 2, "үө", "үх", false},
    {1105, "bo-cn", '.', ",", kYearFirst, '-', "yyyy-MM-dd", "སྤྱི་ལོ་yyyy MMMMའི་ཚེས་d",
     TwoDigits, "¥", "$ n", "-$ n", kNames63, 1, 2, "སྔ་དྲོ་", "ཕྱི་དྲོ་", false},
    {1106, "cy-gb", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     TwoDigits, "£", "$n", "-$n", kNames64, 2, 2, "YB", "YH", false},
    {1107, "km-kh", ',', ".", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "៛", "n$", "-n$", kNames65, 1, 2, "AM", "PM", false},
    {1108, "lo-la", ',', ".", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     AsNeeded, "₭", "$n", "$-n", kNames66, 1, 0, "ກ່ອນທ່ຽງ", "ຫຼັງທ່ຽງ", false},
    {1110, "gl-es", ',', ".", kDayFirst, '/', "dd/MM/yyyy", "d 'de' MMMM 'de' yyyy",
     TwoDigits, "€", "n $", "-n $", kNames67, 2, 2, "AM", "PM", false},
    {1111, "kok-in", '.', ",", kDayFirst, '-', "d-M-yyyy", "d MMMM yyyy",
     Twelve, "₹", "$ n", "-$ n", kNames68, 1, 2, "AM", "PM", false},
    {1115, "si-lk", '.', ",", kYearFirst, '-', "yyyy-MM-dd", "yyyy MMMM d",
     TwoDigits, "රු.", "$n", "-$n", kNames69, 2, 2, "පෙව", "පව", false},
    {1118, "am-et", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     Twelve, "ብር", "$n", "-$n", kNames70, 1, 2, "ጥዋት", "ከሰዓት", false},
    {1121, "ne-np", '.', ",", kYearFirst, '/', "yyyy/M/d", "yyyy MMMM d",
     TwoDigits, "नेरू", "$ n", "-$ n", kNames71, 1, 2, "पूर्वाह्न", "अपराह्न", false},
    {1122, "fy-nl", ',', ".", kDayFirst, '-', "dd-MM-yyyy", "d MMMM yyyy",
     TwoDigits, "€", "$ n", "$ n-", kNames72, 2, 2, "AM", "PM", false},
    {1123, "ps-af", ',', ".", kYearFirst, '/', "yyyy/M/d", "د yyyy د MMMM d",
     AsNeeded, "؋", "n $", "-n $", kNames73, 7, 0, "غم", "غو", false},
    {1124, "fil-ph", '.', ",", kMonthFirst, '/', "M/d/yyyy", "MMMM d, yyyy",
     Twelve, "₱", "$n", "-$n", kNames74, 1, 2, "AM", "PM", false},
    {1128, "ha-latn-ng", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM, yyyy",
     TwoDigits, "₦", "$ n", "-$ n", kNames75, 2, 2, "SAFIYA", "YAMMA", false},
    {1130, "yo-ng", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMM yyyy",
     AsNeeded, "₦", "$n", "-$n", kNames76, 2, 2, "Àárọ̀", "Ọ̀sán", false},
    {1134, "lb-lu", ',', ".", kDayFirst, '.', "dd.MM.yyyy", "d. MMMM yyyy",
     TwoDigits, "€", "n $", "-n $", kNames77, 2, 2, "MOIES", "nomëttes", false},
    {1136, "ig-ng", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     TwoDigits, "₦", "$n", "-$n", kNames78, 2, 2, "N’ụtụtụ", "N’abali", false},
    {1138, "om-et", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "dd MMMM yyyy",
     Twelve, "Br", "$n", "-$n", kNames79, 1, 2, "WD", "WB", false},
    {1139, "ti-et", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     Twelve, "Br", "$n", "-$n", kNames80, 1, 2, "ቅቀ", "ድቀ", false},
    {1143, "so-so", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "MMMM d, yyyy",
     Twelve, "S", "$n", "-$n", kNames81, 2, 0, "GH", "GD", false},
    {1144, "ii-cn", '.', ",", kYearFirst, '-', "yyyy-MM-dd", "yyyy MMMM d",
     TwoDigits, "¥", "$ n", "-$ n", kNames82, 1, 2, "ꎸꄑ", "ꁯꋒ", false},
    {1150, "br-fr", ',', "\302\240", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     TwoDigits, "€", "n $", "-n $", kNames83, 2, 2, "AM", "GM", false},
    {1152, "ug-cn", '.', ",", kYearFirst, '-', "yyyy-MM-dd", "d-MMMM، yyyy",
     TwoDigits, "¥", "$n", "-$n", kNames84, 1, 2, "چب", "چك", false},
    {1153, "mi-nz", '.', ",", kDayFirst, '-', "dd-MM-yyyy", "d MMMM yyyy",
     Twelve, "$", "$ n", "-$ n", kNames85, 2, 2, "AM", "PM", false},
    {1156, "gsw-fr", '.', "'", kDayFirst, '.', "dd.MM.yyyy", "d. MMMM yyyy",
     TwoDigits, "€", "n $", "-n $", kNames86, 2, 2, "AMVORMITTAG", "AMNAMITTAG", false},
    {1157, "sah-ru", ',', "\302\240", kYearFirst, '/', "yyyy/M/d", "yyyy, MMMM d",
     TwoDigits, "₽", "n $", "-n $", kNames87, 2, 2, "ЭИ", "ЭК", false},
    {1159, "rw-rw", ',', ".", kYearFirst, '-', "yyyy-MM-dd", "yyyy MMMM d",
     TwoDigits, "RF", "$ n", "-$ n", kNames88, 2, 0, "AM", "PM", false},
    {1160, "wo-sn", ',', ".", kDayFirst, '-', "dd-MM-yyyy", "d MMMM, yyyy",
     TwoDigits, "F\302\240CFA", "$ n", "-$ n", kNames89, 2, 0, "SUB", "NGO", false},
    {1164, "prs-af", '.', ",", kYearFirst, '/', "yyyy/M/d", "d MMMM yyyy",
     AsNeeded, "؋", "$ n", "-$ n", kNames90, 7, 0, "قظ", "بظ", false},
    {1169, "gd-gb", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d'mh' MMMM yyyy",
     TwoDigits, "£", "$n", "-$n", kNames91, 2, 2, "M", "F", false},
    {2049, "ar-iq", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "د.ع.", "$ n", "-$ n", kNames92, 7, 0, "ص", "م", false},
    {2052, "zh-cn", '.', ",", kYearFirst, '/', "yyyy/M/d", "yyyy年M月d日",
     TwoDigits, "¥", "$n", "-$n", kNames93, 1, 2, "上午", "下午", false},
    {2058, "es-mx", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d 'de' MMMM 'de' yyyy",
     TwoDigits, "$", "$n", "-$n", kNames94, 1, 2, "AM", "PM", false},
    {2060, "fr-be", ',', "\302\240", kDayFirst, '/', "d/MM/yyyy", "d MMMM yyyy",
     TwoDigits, "€", "n $", "-n $", kNames95, 2, 2, "AM", "PM", false},
    {2064, "it-ch", '.', "'", kDayFirst, '.', "dd.MM.yyyy", "d MMMM yyyy",
     TwoDigits, "CHF", "$ n", "$-n", kNames96, 2, 2, "AM", "PM", false},
    {2068, "nn-no", ',', "\302\240", kDayFirst, '.', "dd.MM.yyyy", "d. MMMM yyyy",
     TwoDigits, "kr", "n $", "-n $", kNames97, 2, 2, "AM", "PM", false},
    {2072, "ro-md", ',', ".", kDayFirst, '.', "dd.MM.yyyy", "d MMMM yyyy",
     TwoDigits, "L", "n $", "-n $", kNames98, 2, 2, "AM", "PM", false},
    {2073, "ru-md", ',', "\302\240", kDayFirst, '.', "dd.MM.yyyy", "d MMMM yyyy 'г'.",
     TwoDigits, "L", "n $", "-n $", kNames14, 2, 2, "AM", "PM", false},
    {2074, "sr-latn-cs", ',', ".", kDayFirst, '.', "d.M.yyyy.", "d. MMMM yyyy.",
     TwoDigits, "RSD", "n $", "-n $", kNames99, 2, 0, "AM", "PM", false},
    {2077, "sv-fi", ',', "\302\240", kYearFirst, '-', "yyyy-MM-dd", "d MMMM yyyy",
     TwoDigits, "€", "n $", "-n $", kNames100, 2, 2, "FM", "EM", false},
    {2092, "az-cyrl-az", ',', ".", kDayFirst, '.', "dd.MM.yyyy", "d MMMM yyyy",
     TwoDigits, "₼", "n $", "-n $", kNames101, 2, 2, "АМ", "ПМ", false},
    {2107, "se-se", ',', "\302\240", kYearFirst, '-', "yyyy-MM-dd", "yyyy MMMM d",
     TwoDigits, "kr", "n $", "-n $", kNames43, 2, 2, "iđitbeaivet", "EAHKETBEAIVET", false},
    {2108, "ga-ie", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     TwoDigits, "€", "$n", "-$n", kNames102, 2, 2, "RN", "IN", false},
    {2110, "ms-bn", ',', ".", kDayFirst, '/', "d/MM/yyyy", "d MMMM yyyy",
     Twelve, "$", "$ n", "-$ n", kNames44, 2, 2, "PG", "PTG", false},
    {2115, "uz-cyrl-uz", ',', "\302\240", kDayFirst, '/', "dd/MM/yyyy", "d MMMM, yyyy",
     TwoDigits, "сўм", "n $", "-n $", kNames103, 2, 2, "ТО", "ТК", false},
    {2117, "bn-bd", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM, yyyy",
     Twelve, "৳", "n$", "-n$", kNames51, 1, 2, "AM", "PM", false},
    {3073, "ar-eg", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     Twelve, "ج.م.", "$ n", "-$ n", kNames0, 7, 2, "ص", "م", false},
    {3076, "zh-hk", '.', ",", kDayFirst, '/', "d/M/yyyy", "yyyy年M月d日",
     Twelve, "HK$", "$n", "-$n", kNames3, 1, 2, "上午", "下午", true},
    {3098, "sr-cyrl-cs", ',', ".", kDayFirst, '.', "d.M.yyyy.", "d. MMMM yyyy.",
     TwoDigits, "RSD", "n $", "-n $", kNames104, 2, 0, "AM", "PM", false},
    {3131, "se-fi", ',', "\302\240", kDayFirst, '.', "dd.MM.yyyy", "d MMMM yyyy",
     TwoDigits, "€", "n $", "-n $", kNames105, 2, 2, "IB", "EB", false},
    {4097, "ar-ly", ',', ".", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "د.ل.", "$ n", "-$ n", kNames0, 7, 3, "ص", "م", false},
    {4100, "zh-sg", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "yyyy年M月d日",
     Twelve, "$", "$n", "-$n", kNames93, 1, 2, "上午", "下午", true},
    {4103, "de-lu", ',', ".", kDayFirst, '.', "dd.MM.yyyy", "d. MMMM yyyy",
     TwoDigits, "€", "n $", "-n $", kNames106, 2, 2, "AM", "PM", false},
    {4106, "es-gt", '.', ",", kDayFirst, '/', "d/MM/yyyy", "d 'de' MMMM 'de' yyyy",
     TwoDigits, "Q", "$n", "-$n", kNames94, 1, 2, "AM", "PM", false},
    {4108, "fr-ch", ',', "\302\240", kDayFirst, '.', "dd.MM.yyyy", "d MMMM yyyy",
     TwoDigits, "CHF", "n $", "-n $", kNames95, 2, 2, "AM", "PM", false},
    {4122, "hr-ba", ',', ".", kDayFirst, '.', "d. M. yyyy.", "d. MMMM yyyy.",
     TwoDigits, "KM", "n $", "-n $", kNames15, 2, 2, "AM", "PM", false},
    {5121, "ar-dz", ',', ".", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "د.ج.", "$ n", "-$ n", kNames107, 7, 2, "ص", "م", false},
    {5124, "zh-mo", '.', ",", kDayFirst, '/', "d/M/yyyy", "yyyy年M月d日",
     Twelve, "MOP$", "$n", "-$n", kNames3, 1, 2, "上午", "下午", true},
    {5127, "de-li", '.', "'", kDayFirst, '.', "dd.MM.yyyy", "d. MMMM yyyy",
     TwoDigits, "CHF", "$ n", "-$ n", kNames106, 2, 2, "AM", "PM", false},
    {5130, "es-cr", ',', "\302\240", kDayFirst, '/', "d/M/yyyy", "d 'de' MMMM 'de' yyyy",
     TwoDigits, "₡", "$n", "-$n", kNames94, 2, 2, "AM", "PM", false},
    {5132, "fr-lu", ',', ".", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     TwoDigits, "€", "n $", "-n $", kNames95, 2, 2, "AM", "PM", false},
    {5146, "bs-latn-ba", ',', ".", kDayFirst, '.', "d. M. yyyy.", "d. MMMM yyyy.",
     TwoDigits, "KM", "n $", "-n $", kNames108, 2, 2, "PRIJEPODNE", "POPODNE", false},
    {6145, "ar-ma", ',', ".", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     TwoDigits, "د.م.", "$ n", "-$ n", kNames109, 2, 2, "ص", "م", false},
    {6154, "es-pa", '.', ",", kMonthFirst, '/', "MM/dd/yyyy", "d 'de' MMMM 'de' yyyy",
     Twelve, "B/.", "$n", "-$n", kNames94, 1, 2, "AM", "PM", false},
    {6156, "fr-mc", ',', "\302\240", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     TwoDigits, "€", "n $", "-n $", kNames95, 2, 2, "AM", "PM", false},
    {6170, "sr-latn-ba", ',', ".", kDayFirst, '.', "d.M.yyyy.", "d. MMMM yyyy.",
     TwoDigits, "KM", "n $", "-n $", kNames110, 2, 2, "PRIJEPODNE", "POPODNE", false},
    {7169, "ar-tn", ',', ".", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "د.ت.", "$ n", "-$ n", kNames107, 2, 3, "ص", "م", false},
    {7177, "en-za", ',', "\302\240", kYearFirst, '/', "yyyy/MM/dd", "dd MMMM yyyy",
     TwoDigits, "R", "$n", "-$n", kNames111, 1, 2, "AM", "PM", false},
    {7178, "es-do", '.', ",", kDayFirst, '/', "d/M/yyyy", "d 'de' MMMM 'de' yyyy",
     Twelve, "RD$", "$n", "-$n", kNames94, 1, 2, "AM", "PM", false},
    {7194, "sr-cyrl-ba", ',', ".", kDayFirst, '.', "d.M.yyyy.", "d. MMMM yyyy.",
     TwoDigits, "КМ", "n $", "-n $", kNames112, 2, 2, "пријеподне", "поподне", false},
    {8193, "ar-om", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "ر.ع.", "$ n", "-$ n", kNames0, 7, 3, "ص", "م", false},
    {8201, "en-jm", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "$", "$n", "-$n", kNames111, 1, 2, "AM", "PM", false},
    {8202, "es-ve", ',', ".", kDayFirst, '/', "d/M/yyyy", "d 'de' MMMM 'de' yyyy",
     Twelve, "Bs.S", "$n", "$-n", kNames113, 1, 2, "AM", "PM", false},
    {8218, "bs-cyrl-ba", ',', ".", kDayFirst, '.', "d.M.yyyy.", "dd. MMMM yyyy.",
     TwoDigits, "КМ", "n $", "-n $", kNames114, 2, 2, "преподне", "поподне", false},
    {9217, "ar-ye", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "ر.ي.", "$ n", "-$ n", kNames0, 1, 0, "ص", "م", false},
    {9226, "es-co", ',', ".", kDayFirst, '/', "d/MM/yyyy", "d 'de' MMMM 'de' yyyy",
     Twelve, "$", "$ n", "-$ n", kNames113, 1, 2, "AM", "PM", false},
    {9242, "sr-latn-rs", ',', ".", kDayFirst, '.', "d.M.yyyy.", "d. MMMM yyyy.",
     TwoDigits, "RSD", "n $", "-n $", kNames99, 2, 0, "AM", "PM", false},
    {10241, "ar-sy", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "ل.س.", "$ n", "-$ n", kNames92, 7, 0, "ص", "م", false},
    {10249, "en-bz", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "dd MMMM yyyy",
     TwoDigits, "$", "$n", "-$n", kNames111, 1, 2, "AM", "PM", false},
    {10250, "es-pe", '.', ",", kDayFirst, '/', "d/MM/yyyy", "d 'de' MMMM 'de' yyyy",
     TwoDigits, "S/", "$ n", "-$ n", kNames115, 1, 2, "AM", "PM", false},
    {10266, "sr-cyrl-rs", ',', ".", kDayFirst, '.', "d.M.yyyy.", "d. MMMM yyyy.",
     TwoDigits, "RSD", "n $", "-n $", kNames104, 2, 0, "AM", "PM", false},
    {11265, "ar-jo", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "د.أ.", "$ n", "-$ n", kNames92, 7, 3, "ص", "م", false},
    {11273, "en-tt", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     Twelve, "$", "$n", "-$n", kNames111, 1, 2, "AM", "PM", false},
    {11274, "es-ar", ',', ".", kDayFirst, '/', "d/M/yyyy", "d 'de' MMMM 'de' yyyy",
     TwoDigits, "$", "$ n", "-$ n", kNames94, 2, 2, "AM", "PM", false},
    {11290, "sr-latn-me", ',', ".", kDayFirst, '.', "d.M.yyyy.", "d. MMMM yyyy.",
     TwoDigits, "€", "n $", "-n $", kNames116, 2, 2, "PRIJEPODNE", "POPODNE", false},
    {12289, "ar-lb", ',', ".", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "ل.ل.", "$ n", "-$ n", kNames92, 2, 0, "ص", "م", false},
    {12297, "en-zw", '.', ",", kDayFirst, '/', "d/M/yyyy", "dd MMMM yyyy",
     TwoDigits, "US$", "$n", "-$n", kNames111, 1, 2, "AM", "PM", false},
    {12298, "es-ec", ',', ".", kDayFirst, '/', "d/M/yyyy", "d 'de' MMMM 'de' yyyy",
     TwoDigits, "$", "$n", "$-n", kNames94, 2, 2, "AM", "PM", false},
    {12314, "sr-cyrl-me", ',', ".", kDayFirst, '.', "d.M.yyyy.", "d. MMMM yyyy.",
     TwoDigits, "€", "n $", "-n $", kNames117, 2, 2, "пријеподне", "поподне", false},
    {13313, "ar-kw", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     Twelve, "د.ك.", "$ n", "-$ n", kNames0, 7, 3, "ص", "م", false},
    {13321, "en-ph", '.', ",", kMonthFirst, '/', "M/d/yyyy", "MMMM d, yyyy",
     Twelve, "₱", "$n", "-$n", kNames118, 1, 2, "AM", "PM", false},
    {13322, "es-cl", ',', ".", kDayFirst, '-', "dd-MM-yyyy", "d 'de' MMMM 'de' yyyy",
     TwoDigits, "$", "$n", "$-n", kNames113, 2, 0, "AM", "PM", false},
    {14337, "ar-ae", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     Twelve, "د.إ.", "$ n", "-$ n", kNames0, 7, 2, "ص", "م", false},
    {14346, "es-uy", ',', ".", kDayFirst, '/', "d/M/yyyy", "d 'de' MMMM 'de' yyyy",
     TwoDigits, "$", "$ n", "-$ n", kNames115, 2, 2, "AM", "PM", false},
    {15361, "ar-bh", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "د.ب.", "$ n", "-$ n", kNames0, 7, 3, "ص", "م", false},
    {15370, "es-py", ',', ".", kDayFirst, '/', "d/M/yyyy", "d 'de' MMMM 'de' yyyy",
     TwoDigits, "Gs.", "$ n", "$ -n", kNames113, 1, 0, "AM", "PM", false},
    {16385, "ar-qa", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     Twelve, "ر.ق.", "$ n", "-$ n", kNames0, 7, 2, "ص", "م", false},
    {16393, "en-in", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     Twelve, "₹", "$n", "-$n", kNames111, 1, 2, "AM", "PM", false},
    {16394, "es-bo", ',', ".", kDayFirst, '/', "d/M/yyyy", "d 'de' MMMM 'de' yyyy",
     TwoDigits, "Bs", "$n", "-$n", kNames94, 2, 2, "AM", "PM", false},
    {17417, "en-my", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "d MMMM yyyy",
     Twelve, "RM", "$n", "-$n", kNames111, 2, 2, "AM", "PM", false},
    {17418, "es-sv", '.', ",", kDayFirst, '/', "d/M/yyyy", "d 'de' MMMM 'de' yyyy",
     TwoDigits, "$", "$n", "-$n", kNames94, 1, 2, "AM", "PM", false},
    {18441, "en-sg", '.', ",", kDayFirst, '/', "d/M/yyyy", "d MMMM yyyy",
     Twelve, "$", "$n", "-$n", kNames111, 1, 2, "AM", "PM", false},
    {18442, "es-hn", '.', ",", kDayFirst, '/', "d/M/yyyy", "dd 'de' MMMM 'de' yyyy",
     TwoDigits, "L", "$n", "-$n", kNames94, 1, 2, "AM", "PM", false},
    {19466, "es-ni", '.', ",", kDayFirst, '/', "d/M/yyyy", "d 'de' MMMM 'de' yyyy",
     TwoDigits, "C$", "$n", "-$n", kNames94, 1, 2, "AM", "PM", false},
    {20490, "es-pr", '.', ",", kMonthFirst, '/', "MM/dd/yyyy", "d 'de' MMMM 'de' yyyy",
     Twelve, "$", "$n", "-$n", kNames94, 1, 2, "AM", "PM", false},
    {21514, "es-us", '.', ",", kDayFirst, '/', "d/M/yyyy", "d 'de' MMMM 'de' yyyy",
     Twelve, "$", "$n", "-$n", kNames94, 1, 2, "AM", "PM", false},
};

}  // namespace

std::span<const Locale> otherLocales() {
  return kOtherLocales;
}

}  // namespace quorvane::vbs
// clang-format on
