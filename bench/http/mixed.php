<?php
// The page of mixed.qvs, to be run again and again once it is compiled: microseconds a page at
// best, and what it writes.

class ShoppingBasket
{
    private $items = [];
    private $total = 0;

    public function add($article, $price, $count)
    {
        if (isset($this->items[$article])) {
            $this->items[$article] += $count;
        } else {
            $this->items[$article] = $count;
        }
        $this->total += $price * $count;
    }

    public function total()
    {
        return $this->total;
    }

    public function count()
    {
        return count($this->items);
    }

    public function item($article)
    {
        return $this->items[$article];
    }

    public function articles()
    {
        return array_keys($this->items);
    }
}

function padded($number, $width)
{
    return substr(str_repeat("0", $width) . $number, -$width);
}

function dayName($day)
{
    switch ((int) date("w", $day)) {
        case 0:
        case 6:
            return "weekend";
        case 5:
            return "nearly weekend";
        default:
            return "working day";
    }
}

function row($label, $value)
{
?>
<tr>
<th><?= $label ?></th>
<td><?= htmlspecialchars($value) ?></td>
</tr>
<?php
}

function sorted($values)
{
    $last = count($values) - 1;
    for ($i = 1; $i <= $last; $i++) {
        $moving = $values[$i];
        $j = $i - 1;
        while ($j >= 0) {
            if (strcmp($values[$j], $moving) <= 0) {
                break;
            }
            $values[$j + 1] = $values[$j];
            $j = $j - 1;
        }
        $values[$j + 1] = $moving;
    }
    return $values;
}

function wholeNumber(int $number)
{
    return $number;
}

function page(&$session, $server, $query)
{
    $basket = new ShoppingBasket();
    $names = ["apple", "pear", "plum", "fig", "quince"];
    $prices = [0.5, 0.75, 0.25, 1.25, 2];
    for ($i = 0; $i < count($names); $i++) {
        $basket->add($names[$i], $prices[$i], $i + 1);
    }
    $basket->add("fig", 1.25, 2);

    $visits = (int) ("0" . ($session["visits"] ?? "")) + 1;
    $session["visits"] = $visits;
    $today = mktime(0, 0, 0, 3, 9, 2026);
?>
<!DOCTYPE html>
<html>
<head>
<title>A page of two hundred lines</title>
<style>
body { font-family: sans-serif; margin: 2em; }
table { border-collapse: collapse; }
th, td { border-bottom: 1px solid #ccc; padding: 0.25em 1em; }
th { text-align: left; }
.total { font-weight: bold; }
ol { padding-left: 1.5em; }
a { color: #4b3fd1; }
p { max-width: 40em; }
hr { border: 0; border-top: 1px solid #ccc; }
h1 { font-size: 1.5em; }
h2 { font-size: 1.1em; }
b { color: #900; }
</style>
</head>
<body>
<h1>A page of two hundred lines</h1>
<p>It does what pages do all day, without a database.</p>

<h2>Basket</h2>
<table>
<tr>
<th>Article</th>
<th>Count</th>
</tr>
<?php foreach ($basket->articles() as $article) { ?>
<tr>
<td><?= $article ?></td>
<td><?= $basket->item($article) ?></td>
</tr>
<?php } ?>
<tr class="total">
<td><?= $basket->count() ?> articles</td>
<td><?= number_format($basket->total(), 2) ?></td>
</tr>
</table>

<h2>Sorted</h2>
<ol>
<?php foreach (sorted($names) as $word) { ?>
<li><?= strtoupper(substr($word, 0, 1)) . substr($word, 1) ?></li>
<?php } ?>
</ol>

<h2>Days</h2>
<table>
<?php for ($i = 0; $i <= 6; $i++) {
$day = strtotime("+$i day", $today); ?>
<tr>
<td><?= padded(date('Y', $day), 4) . "-" . padded(date('n', $day), 2) . "-" . padded(date('j', $day), 2) ?></td>
<td><?= dayName($day) ?></td>
</tr>
<?php } ?>
</table>

<h2>Words</h2>
<?php
$words = explode(" ", "the quick brown fox jumps over the lazy dog");
$total = 0;
foreach ($words as $word) $total = $total + strlen($word);
?>
<p><?= count($words) ?> words,
<?= $total ?> letters,
<?= number_format($total / count($words), 1) ?> on average.</p>
<p><?= str_replace("fox", "<b>fox</b>", implode(", ", $words)) ?></p>

<h2>Request</h2>
<table>
<?php
row("Address", $server["REMOTE_ADDR"]);
row("Host", $server["SERVER_ADDR"]);
row("Query string", $server["QUERY_STRING"]);
row("Name", $query["name"] ?? "");
row("Lines of the head", (string)count($server));
if (isset($server["HTTP_ACCEPT"])) row("Accepted", $server["HTTP_ACCEPT"]);
?>
</table>

<?php if ($visits > 1) { ?>
<p>Welcome back; this is visit <?= $visits ?>.</p>
<?php } else { ?>
<p>Welcome.</p>
<?php } ?>

<?php
try { $i = wholeNumber("no number"); } catch (TypeError $error) {
?>
<p>An error that was expected: <?= "Type mismatch" ?></p>
<?php
}
?>

<p><a href="/mixed.qvs?name=<?= urlencode("a b") ?>">Again</a></p>
<hr>
<p>Version <?= PHP_VERSION ?></p>
</body>
</html>
<?php
}

date_default_timezone_set("UTC");
if (PHP_SAPI !== "cli") {  // one run for a request
    session_start();
    page($_SESSION, $_SERVER, $_GET);
    exit;
}
$server = ["REMOTE_ADDR" => "127.0.0.1", "SERVER_ADDR" => "127.0.0.1", "QUERY_STRING" => ""];
$best = INF;
for ($round = 0; $round < 20; $round++) {
    $start = hrtime(true);
    for ($run = 0; $run < 2000; $run++) {
        $session = [];
        ob_start();
        page($session, $server, []);
        $written = ob_get_clean();
    }
    $best = min($best, (hrtime(true) - $start) / 2000 / 1000);
}
fprintf(STDERR, "%.1f\n", $best);
echo $written;
