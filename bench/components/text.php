<?php
$text = file_get_contents(__DIR__ . '/data/prose.txt');
?>
<html><body><p><?= strlen($text) ?> letters in <?= count(explode("\n", $text)) - 1 ?> lines</p>
<pre><?= $text ?></pre></body></html>
