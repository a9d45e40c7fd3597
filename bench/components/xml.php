<?php
function walk($node)
{
    global $elements, $letters, $prices;
    $elements++;
    if ($node->nodeName === 'item') {
        $prices += (float) $node->getAttribute('price');
    }
    foreach ($node->childNodes as $child) {
        if ($child->nodeType === XML_ELEMENT_NODE) {
            walk($child);
        } elseif ($child->nodeType === XML_TEXT_NODE) {
            $letters += strlen($child->nodeValue);
        }
    }
}

$elements = $letters = $prices = 0;
$document = new DOMDocument();
$document->preserveWhiteSpace = false;
if ($document->load(__DIR__ . '/data/goods.xml')) {
    walk($document->documentElement);
}
?>
<html><body><?= $elements ?> elements, <?= $letters ?> letters, <?= $prices ?></body></html>
