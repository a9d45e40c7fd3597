<?php
$db = new PDO('sqlite:' . __DIR__ . '/data/bench.db', null, null, [PDO::ATTR_PERSISTENT => true]);
$db->beginTransaction();
$insert = $db->prepare('INSERT INTO visits (page, visitor, minutes) VALUES (?, ?, ?)');
$insert->execute(['/write', $_SERVER['REMOTE_ADDR'], 7]);
$db->commit();
?>
<html><body>written</body></html>
