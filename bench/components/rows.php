<?php
$db = new PDO('sqlite:' . __DIR__ . '/data/bench.db', null, null, [PDO::ATTR_PERSISTENT => true]);
$rows = $db->query('SELECT id, name, town, price FROM goods ORDER BY name LIMIT 50');
?>
<html><body><table>
<?php while ($row = $rows->fetch(PDO::FETCH_ASSOC)) { ?>
<tr><td><?= $row['id'] ?></td><td><?= htmlspecialchars($row['name']) ?></td><td><?= htmlspecialchars($row['town']) ?></td><td><?= $row['price'] ?></td></tr>
<?php } ?>
</table></body></html>
