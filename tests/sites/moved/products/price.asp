<p id="price">Prices of <%= FormatDateTime(#2009-03-02#, vbLongDate) %>, for <%= Session("Product") %></p>
